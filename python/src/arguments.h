// What Python passes in: numbers with their ranges, colours, bytes.
#ifndef GFX_PYTHON_ARGUMENTS_H
#define GFX_PYTHON_ARGUMENTS_H

#include <gfx/kit/color.h>
#include <pybind11/pybind11.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>

namespace gfx::python {

/// A coordinate, or another number from -2^31 to 2^31 - 1.
struct Whole {
    int value = 0;
    operator int() const { return value; }
};

/// A size in pixels, or another number from 0 to 2^32 - 1.
struct Size {
    unsigned value = 0;
    operator unsigned() const { return value; }
};

/// A colour given as a Color, a tuple or a string.
struct Ink {
    kit::Color color;
    operator unsigned() const { return color.Word(); }
};

/// The integer `number` if it lies within the limits. Throws ValueError otherwise, and TypeError
/// where it is no integer.
long long WholeWithin(PyObject* number, long long least, long long most);

/// The colour of a Color, a tuple of 3 or 4 numbers or a string. False where it is none of them;
/// throws ValueError where it is one but names no colour.
bool LoadColor(pybind11::handle given, kit::Color& color);

/// Memory of a bytes-like object, held until this is destroyed.
class HostBytes {
public:
    enum class Access { kRead, kWrite };

    /// Throws TypeError for other objects, BufferError where the bytes are not contiguous or not to
    /// be written.
    HostBytes(pybind11::handle object, Access access);
    HostBytes(const HostBytes&) = delete;
    HostBytes& operator=(const HostBytes&) = delete;
    ~HostBytes() { PyBuffer_Release(&buffer_); }

    unsigned char* Data() const { return static_cast<unsigned char*>(buffer_.buf); }
    std::uint64_t Length() const { return static_cast<std::uint64_t>(buffer_.len); }

private:
    Py_buffer buffer_;
};

}  // namespace gfx::python

namespace pybind11::detail {

template <class Number, class Value>
struct WholeCaster {
    bool load(handle given, bool) {
        if (!given || !PyIndex_Check(given.ptr())) return false;
        number.value = static_cast<Value>(gfx::python::WholeWithin(
            given.ptr(), std::numeric_limits<Value>::min(), std::numeric_limits<Value>::max()));
        return true;
    }
    static handle cast(Number value, return_value_policy, handle) {
        return PyLong_FromLongLong(value.value);
    }
    template <class>
    using cast_op_type = Number;
    operator Number() const { return number; }
    static constexpr auto name = const_name("int");
    Number number;
};

template <>
struct type_caster<gfx::python::Whole> : WholeCaster<gfx::python::Whole, int> {};
template <>
struct type_caster<gfx::python::Size> : WholeCaster<gfx::python::Size, unsigned> {};

template <>
struct type_caster<gfx::python::Ink> {
    bool load(handle given, bool) { return gfx::python::LoadColor(given, ink.color); }
    static handle cast(const gfx::python::Ink& given, return_value_policy, handle) {
        return pybind11::cast(given.color).release();
    }
    template <class>
    using cast_op_type = gfx::python::Ink;
    operator gfx::python::Ink() const { return ink; }
    static constexpr auto name = const_name("Color | tuple | str");
    gfx::python::Ink ink;
};

}  // namespace pybind11::detail

#endif  // GFX_PYTHON_ARGUMENTS_H
