#include "arguments.h"

namespace py = pybind11;

namespace gfx::python {

long long WholeWithin(PyObject* number, long long least, long long most) {
    const auto whole = py::reinterpret_steal<py::object>(PyNumber_Index(number));
    if (!whole) throw py::error_already_set();
    int beyond = 0;
    const long long value = PyLong_AsLongLongAndOverflow(whole.ptr(), &beyond);
    if (value == -1 && PyErr_Occurred() != nullptr) throw py::error_already_set();
    if (beyond != 0 || value < least || value > most) {
        throw py::value_error(std::string(py::str(whole)) + " is not from " +
                              std::to_string(least) + " to " + std::to_string(most));
    }
    return value;
}

namespace {

unsigned Channel(py::handle given) {
    if (!PyIndex_Check(given.ptr())) {
        throw py::type_error("a colour's channels are integers, not " +
                             std::string(Py_TYPE(given.ptr())->tp_name));
    }
    return static_cast<unsigned>(WholeWithin(given.ptr(), 0, 255));
}

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

kit::Color ColorOfText(const std::string& text) {
    const bool rightLength = text.size() == 7 || text.size() == 9;
    unsigned channels[4] = {0, 0, 0, 255};
    bool good = rightLength && text[0] == '#';
    for (std::size_t i = 1; good && i < text.size(); i += 2) {
        const int high = HexDigit(text[i]);
        const int low = HexDigit(text[i + 1]);
        good = high >= 0 && low >= 0;
        channels[i / 2] = static_cast<unsigned>(high * 16 + low);
    }
    if (!good) {
        throw py::value_error("a colour is written \"#rrggbb\" or \"#rrggbbaa\", not \"" + text +
                              "\"");
    }
    return kit::Color::Rgba(channels[0], channels[1], channels[2], channels[3]);
}

kit::Color ColorOfTuple(const py::tuple& tuple) {
    if (tuple.size() != 3 && tuple.size() != 4) {
        throw py::value_error("a colour is (r, g, b) or (r, g, b, opacity), not a tuple of " +
                              std::to_string(tuple.size()));
    }
    const unsigned opacity = tuple.size() == 4 ? Channel(tuple[3]) : 255;
    return kit::Color::Rgba(Channel(tuple[0]), Channel(tuple[1]), Channel(tuple[2]), opacity);
}

}  // namespace

bool LoadColor(py::handle given, kit::Color& color) {
    if (!given) return false;
    if (py::isinstance<kit::Color>(given)) {
        color = py::cast<kit::Color>(given);
    } else if (PyTuple_Check(given.ptr())) {
        color = ColorOfTuple(py::reinterpret_borrow<py::tuple>(given));
    } else if (PyUnicode_Check(given.ptr())) {
        color = ColorOfText(py::cast<std::string>(given));
    } else {
        return false;
    }
    return true;
}

HostBytes::HostBytes(py::handle object, Access access) {
    if (PyObject_CheckBuffer(object.ptr()) == 0) {
        throw py::type_error("a bytes-like object is expected, not " +
                             std::string(Py_TYPE(object.ptr())->tp_name));
    }
    const int flags = access == Access::kWrite ? PyBUF_CONTIG : PyBUF_CONTIG_RO;
    if (PyObject_GetBuffer(object.ptr(), &buffer_, flags) != 0) throw py::error_already_set();
}

}  // namespace gfx::python
