// Runs an action when a scope is left before it has succeeded: by an exception, which is not
// caught, or by a return.
#ifndef GFX_MEMORY_ON_FAILURE_H
#define GFX_MEMORY_ON_FAILURE_H

namespace gfx {

template <class Action>
class OnFailure {
public:
    explicit OnFailure(Action action) : action_(action) {}
    OnFailure(const OnFailure&) = delete;
    OnFailure& operator=(const OnFailure&) = delete;
    ~OnFailure() noexcept(false) {
        if (!dismissed_) action_();
    }

    /// The scope has succeeded.
    void Dismiss() { dismissed_ = true; }

private:
    Action action_;
    bool dismissed_ = false;
};

}  // namespace gfx

#endif  // GFX_MEMORY_ON_FAILURE_H
