// Each function of the kit's damage in C beside what it stands for in C++.
#include <gfx/kit/damage.h>

#include "world.h"

namespace test {
namespace {

using namespace gfx::kit;

void AddTwice(gfx_damage* d) {
    gfx_damage_add(d, -3, 5, 9, 4);
    gfx_damage_add(d, 21, 11, 6, 7);
}

void RecordRect(void* world, const gfx_rect* r) {
    static_cast<World*>(world)->Record(r->x, r->y, r->w, r->h);
}

gfx_status RecordAll(World& w, gfx_status status) {
    if (status != GFX_OK) return status;
    return gfx_damage_flush(w.cDamage, RecordRect, &w);
}

void RecordAll(World& w, DamageList& list) {
    list.Flush([&](const DamageRect& r) { w.Record(r.x, r.y, r.w, r.h); });
}

DamageList Twice() {
    DamageList list(World::kWidth, World::kHeight, 4, 2);
    list.Add(-3, 5, 9, 4);
    list.Add(21, 11, 6, 7);
    return list;
}

}  // namespace

const std::vector<Pair> kDamagePairs = {
    {"gfx_damage_new",
     [](World& w) {
         gfx_damage* d = nullptr;
         const gfx_status status = gfx_damage_new(9, 8, 3, 5, w.cDamage == nullptr ? nullptr : &d);
         if (status != GFX_OK) return status;
         gfx_damage_add(d, 4, 6, 1, 1);
         gfx_damage_flush(d, RecordRect, &w);
         return gfx_damage_delete(&d);
     },
     [](World& w) {
         Block object(1);
         DamageList list(9, 8, 3, 5);
         list.Add(4, 6, 1, 1);
         RecordAll(w, list);
     }},
    {"gfx_damage_delete", [](World& w) { return gfx_damage_delete(&w.cDamage); }, [](World&) {}},
    {"gfx_damage_add",
     [](World& w) { return RecordAll(w, gfx_damage_add(w.cDamage, -3, 5, 9, 4)); },
     [](World& w) {
         DamageList list(World::kWidth, World::kHeight, 4, 2);
         list.Add(-3, 5, 9, 4);
         RecordAll(w, list);
     }},
    {"gfx_damage_add_all", [](World& w) { return RecordAll(w, gfx_damage_add_all(w.cDamage)); },
     [](World& w) { w.Record(0, 0, World::kWidth, World::kHeight); }},
    {"gfx_damage_count",
     [](World& w) {
         int count = 0;
         AddTwice(w.cDamage);
         const gfx_status status = gfx_damage_count(w.cDamage, &count);
         if (status == GFX_OK) w.Record(count);
         return status;
     },
     [](World& w) { w.Record(Twice().Count()); }},
    {"gfx_damage_get",
     [](World& w) {
         gfx_rect r{};
         AddTwice(w.cDamage);
         const gfx_status status = gfx_damage_get(w.cDamage, 1, &r);
         if (status != GFX_OK) return status;
         w.Record(r.x, r.y, r.w, r.h, gfx_damage_get(w.cDamage, 2, &r) == GFX_NO_SUCH_VALUE,
                  gfx_damage_get(w.cDamage, -1, &r) == GFX_NO_SUCH_VALUE);
         return status;
     },
     [](World& w) {
         const DamageList list = Twice();
         w.Record(list[1].x, list[1].y, list[1].w, list[1].h, true, true);
     }},
    {"gfx_damage_flush",
     [](World& w) {
         AddTwice(w.cDamage);
         RecordAll(w, GFX_OK);
         return RecordAll(w, GFX_OK);
     },
     [](World& w) {
         DamageList list = Twice();
         RecordAll(w, list);
     }},
    {"gfx_damage_clear",
     [](World& w) {
         AddTwice(w.cDamage);
         return RecordAll(w, gfx_damage_clear(w.cDamage));
     },
     [](World&) {}},
};

}  // namespace test
