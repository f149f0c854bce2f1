// One call at a time on each object of the engine, whichever threads Python runs.
#ifndef GFX_PYTHON_EXCLUSIVE_H
#define GFX_PYTHON_EXCLUSIVE_H

#include <pybind11/pybind11.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <initializer_list>
#include <mutex>

namespace gfx::python {

/// An object that serves one call at a time.
struct Exclusive {
    std::mutex mutex;
};

/// The objects that one call uses, locked in the order of their addresses, so that two calls that
/// use the same ones cannot wait for each other.
class Claim {
public:
    static constexpr std::size_t kMost = 16;

    Claim(std::initializer_list<Exclusive*> objects) {
        for (Exclusive* object : objects)
            Add(object);
    }
    Claim(const Claim&) = delete;
    Claim& operator=(const Claim&) = delete;
    ~Claim() { Give(); }

    /// Null and what is there already are left out.
    void Add(Exclusive* object) {
        if (object == nullptr) return;
        auto* const end = objects_.data() + count_;
        auto* const place = std::lower_bound(objects_.data(), end, object);
        if (place != end && *place == object) return;
        std::copy_backward(place, end, end + 1);
        *place = object;
        ++count_;
    }

    void Take() {
        for (; taken_ < count_; ++taken_)
            objects_[taken_]->mutex.lock();
    }

    bool TryTake() {
        for (; taken_ < count_; ++taken_) {
            if (objects_[taken_]->mutex.try_lock()) continue;
            Give();
            return false;
        }
        return true;
    }

    void Give() {
        while (taken_ > 0)
            objects_[--taken_]->mutex.unlock();
    }

private:
    std::array<Exclusive*, kMost> objects_;
    std::size_t count_ = 0;
    std::size_t taken_ = 0;
};

/// Whether a call may take long enough to let other threads run Python meanwhile.
enum class Length { kShort, kLong };

/// A rectangle is worth releasing the interpreter from about here on.
inline Length LengthOf(unsigned w, unsigned h) {
    const unsigned long long kManyPixels = 16384;
    return 1ULL * w * h >= kManyPixels ? Length::kLong : Length::kShort;
}

/// Calls `function` while `claim` is held. It must not touch Python: it may run without the
/// interpreter's lock. That lock is never waited for while a claim is held.
template <class Function>
auto Alone(Claim& claim, Length length, Function&& function) {
    if (length == Length::kShort && claim.TryTake()) {
        return function();
    }
    pybind11::gil_scoped_release released;
    struct Held {
        Claim& claim;
        explicit Held(Claim& c) : claim(c) { claim.Take(); }
        ~Held() { claim.Give(); }
        Held(const Held&) = delete;
        Held& operator=(const Held&) = delete;
    } held(claim);
    return function();
}

template <class Function>
auto Alone(std::initializer_list<Exclusive*> objects, Length length, Function&& function) {
    Claim claim(objects);
    return Alone(claim, length, function);
}

}  // namespace gfx::python

#endif  // GFX_PYTHON_EXCLUSIVE_H
