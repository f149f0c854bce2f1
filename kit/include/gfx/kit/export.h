#ifndef GFX_KIT_EXPORT_H
#define GFX_KIT_EXPORT_H
#define GFX_KIT_API __attribute__((visibility("default")))
#endif
