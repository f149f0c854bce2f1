// Objects of the kit behind handles: the kit leaves it to the host where they stand, so here they
// stand in memory from the hooks.
#ifndef GFX_C_KIT_OBJECTS_H
#define GFX_C_KIT_OBJECTS_H

#include <gfx/memory.h>

#include <new>
#include <utility>

#include "../guard.h"

namespace gfx::c {

/// Constructors of the kit throw nothing, so the block cannot be lost between the two steps.
template <class Object, class... Arguments>
Object* MakeInHooks(Arguments&&... arguments) {
    return ::new (GfxMemory::operator new(sizeof(Object)))
        Object(std::forward<Arguments>(arguments)...);
}

/// The block goes back even if the object's own memory could not.
template <class Object>
void DestroyInHooks(Object* object) {
    try {
        object->~Object();
    } catch (...) {
        GfxMemory::operator delete(object);
        throw;
    }
    GfxMemory::operator delete(object);
}

/// The number as an enumeration of the kit whose largest value is `last`.
template <class Enumeration>
bool IsNamed(unsigned int number, Enumeration last) {
    return number <= static_cast<unsigned int>(last);
}

}  // namespace gfx::c

#endif  // GFX_C_KIT_OBJECTS_H
