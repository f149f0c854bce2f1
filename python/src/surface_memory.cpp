// What lies below a surface, the host's array, and above it, views of its pixels.
#include <pybind11/numpy.h>

#include <cstring>
#include <limits>
#include <new>
#include <string>

#include "arguments.h"
#include "surface.h"

namespace py = pybind11;

namespace gfx::python {
namespace {

struct Inside : GfxSurface {
    static auto FirstByte() { return &Inside::surface; }
};

unsigned BytesPerPixel(unsigned depth) {
    return depth <= 1 ? 0 : depth <= 8 ? 1 : depth <= 16 ? 2 : 4;
}

}  // namespace

class Ground {
public:
    explicit Ground(const py::object& array) {
        if (PyObject_CheckBuffer(array.ptr()) == 0) {
            throw py::type_error("an array is expected, not " +
                                 std::string(Py_TYPE(array.ptr())->tp_name));
        }
        if (PyObject_GetBuffer(array.ptr(), &buffer_, PyBUF_RECORDS) != 0) {
            throw py::error_already_set();
        }
    }
    Ground(const Ground&) = delete;
    Ground& operator=(const Ground&) = delete;
    ~Ground() { PyBuffer_Release(&buffer_); }

    /// Bytes of a pixel: 1, 2 or 4. Three dimensions are rows of pixels of four bytes.
    unsigned ItemSize() const {
        const char* format = buffer_.format == nullptr ? "B" : buffer_.format;
        if (*format == '@' || *format == '=' || *format == '<') ++format;
        const bool isUnsigned = std::strlen(format) == 1 && std::strchr("BHIL", *format) != nullptr;
        const bool isBytes =
            buffer_.itemsize == 1 && buffer_.ndim == 3 && Extent(2) == 4 && buffer_.strides[2] == 1;
        const bool isPixels = buffer_.ndim == 2 && (buffer_.itemsize == 1 ||
                                                    buffer_.itemsize == 2 || buffer_.itemsize == 4);
        if (!isUnsigned || !(isBytes || isPixels)) {
            throw py::value_error(
                "an array of a surface is (height, width) of uint8, uint16 or uint32, or "
                "(height, width, 4) of uint8");
        }
        return isBytes ? 4 : static_cast<unsigned>(buffer_.itemsize);
    }

    /// Bytes from row to row, checked to be ones that a surface can take.
    unsigned RowBytes(unsigned itemSize) const {
        const py::ssize_t row = Extent(1) * static_cast<py::ssize_t>(itemSize);
        if (Extent(1) > 1 && buffer_.strides[1] != static_cast<py::ssize_t>(itemSize)) {
            throw py::value_error("the pixels of a row must lie side by side");
        }
        const py::ssize_t step = Extent(0) > 1 ? buffer_.strides[0] : row;
        if (step < row || step > std::numeric_limits<int>::max()) {
            throw py::value_error("the rows must follow each other downwards without overlap");
        }
        return static_cast<unsigned>(step);
    }

    py::ssize_t Extent(int dimension) const { return buffer_.shape[dimension]; }
    void* First() const { return buffer_.buf; }

private:
    Py_buffer buffer_;
};

/// What a view holds: the surface, which may not be resized meanwhile.
class Lease {
public:
    explicit Lease(std::shared_ptr<Surface> surface) : surface_(std::move(surface)) {
        ++surface_->views_;
    }
    Lease(const Lease&) = delete;
    Lease& operator=(const Lease&) = delete;
    ~Lease() { --surface_->views_; }

private:
    std::shared_ptr<Surface> surface_;
};

const void* FirstByte(const GfxSurface& surface) { return surface.*Inside::FirstByte(); }

EngineSurface NewSurface(unsigned depth) {
    EngineSurface made(GfxSurface::New(depth));
    if (made == nullptr) throw std::bad_alloc();
    return made;
}

Surface::Surface(unsigned width, unsigned height, unsigned depth) : engine(NewSurface(depth)) {
    engine->Initialise(width, height);
}

Surface::~Surface() = default;

std::shared_ptr<Surface> Surface::Over(const py::object& array, const py::object& depth) {
    auto ground = std::make_shared<Ground>(array);
    const unsigned itemSize = ground->ItemSize();
    const unsigned bits =
        depth.is_none() ? itemSize * 8 : static_cast<unsigned>(WholeWithin(depth.ptr(), 0, 32));
    if (bits == 0 || std::max(BytesPerPixel(bits), 1U) != itemSize) {
        throw py::value_error("an array of " + std::to_string(itemSize) +
                              "-byte items does not hold pixels of depth " + std::to_string(bits));
    }
    const unsigned rowBytes = ground->RowBytes(itemSize);
    const py::ssize_t width = ground->Extent(1) * (bits == 1 ? 8 : 1);
    const py::ssize_t most = std::numeric_limits<int>::max();
    if (width > most || ground->Extent(0) > most) throw py::value_error("the array is too large");
    std::shared_ptr<Surface> made(new Surface(NewSurface(bits)));
    made->engine->Initialise(static_cast<unsigned>(width), static_cast<unsigned>(ground->Extent(0)),
                             ground->First(), rowBytes, false);
    made->ground_ = std::move(ground);
    return made;
}

py::object Surface::Pixels(const std::shared_ptr<Surface>& self) {
    struct Layout {
        std::unique_ptr<Lease> lease;
        unsigned width, height, pitch, depth;
        const void* first;
    };
    const auto layout = Alone({self.get()}, Length::kShort, [&] {
        const GfxSurface& s = *self->engine;
        return Layout{
            std::make_unique<Lease>(self), s.DX(), s.DY(), s.Pitch(), s.Depth(), FirstByte(s)};
    });
    if (layout.depth == 0) throw py::value_error("a surface of depth 0 stores no pixels");
    if (layout.first == nullptr && layout.width != 0 && layout.height != 0) {
        throw py::value_error("the surface holds no memory");
    }
    const unsigned itemSize = std::max(BytesPerPixel(layout.depth), 1U);
    const py::ssize_t columns =
        layout.depth == 1 ? (py::ssize_t{layout.width} + 7) / 8 : py::ssize_t{layout.width};
    const py::dtype types[] = {py::dtype::of<std::uint8_t>(), py::dtype::of<std::uint16_t>(),
                               py::dtype::of<std::uint32_t>()};
    auto& lease = const_cast<std::unique_ptr<Lease>&>(layout.lease);
    return py::array(types[itemSize / 2], {py::ssize_t{layout.height}, columns},
                     {py::ssize_t{layout.pitch}, py::ssize_t{itemSize}}, layout.first,
                     py::cast(std::move(lease)));
}

void Surface::RefuseWhileViewed() const {
    if (views_ != 0) {
        throw py::buffer_error("the surface cannot be resized while views of its pixels exist");
    }
}

void Surface::Clear() {
    Alone({this}, Length::kLong, [this] {
        if (ground_ == nullptr) return engine->Clear();
        // What lies between and behind the rows of a window belongs to the larger picture.
        const std::size_t row = engine->Depth() == 1
                                    ? (std::size_t{engine->DX()} + 7) / 8
                                    : std::size_t{engine->DX()} * BytesPerPixel(engine->Depth());
        for (unsigned y = 0; row > 0 && y < engine->DY(); ++y) {
            std::memset(engine->Line(static_cast<int>(y)), 0, row);
        }
        engine->SetEmpty(true);
    });
}

void BindLease(py::module_& module) {
    py::class_<Lease>(module, "_Lease", "What a view of a surface's pixels holds.");
}

}  // namespace gfx::python
