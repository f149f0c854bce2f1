// The hooks of the engine's memory, for the page and for the program that checks its pictures.
#pragma once

namespace playground {

/// Sets both hooks to the C library's allocator. Call it before the first object is made.
void InstallHooks();

}  // namespace playground
