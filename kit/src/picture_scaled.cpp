// Scaled pictures: where each target column and row lies in the source is worked out once a call;
// source rows are read as they are needed, each but once.
#include <climits>

#include "block.h"
#include "picture_rows.h"

namespace gfx::kit {
namespace {

/// Two source positions and how far between them, in 1/256.
struct Between {
    std::uint32_t low, high, share;
};

/// The source pixel at the middle of target position i.
std::uint32_t MiddleOf(std::int64_t i, int size, int targetSize) {
    return static_cast<std::uint32_t>((2 * i + 1) * size / (2 * std::int64_t{targetSize}));
}

/// That middle between pixels' middles, cut to 1/256 and to the source.
Between BetweenMiddles(std::int64_t i, int size, int targetSize) {
    // ((2 i + 1) size / (2 targetSize) - 1/2) * 256; the first product stays below 2^63 as one of
    // 32 bits by 31, and its quotient is taken apart from the remainder for the same reason.
    const std::int64_t twice = 2 * std::int64_t{targetSize};
    const std::int64_t product = (2 * i + 1) * size;
    const std::int64_t position = product / twice * 256 + product % twice * 256 / twice - 128;
    const std::int64_t last = std::int64_t{size - 1} * 256;
    const std::int64_t inside = std::clamp<std::int64_t>(position, 0, last);
    const auto low = static_cast<std::uint32_t>(inside / 256);
    return {low, std::min(low + 1, static_cast<std::uint32_t>(size - 1)),
            static_cast<std::uint32_t>(inside % 256)};
}

/// All four bytes of two words mixed at once, rounded to nearest.
std::uint32_t MixOf(std::uint32_t from, std::uint32_t to, std::uint32_t share) {
    constexpr std::uint32_t kPairs = 0x00FF00FF;
    constexpr std::uint32_t kHalves = 0x00800080;
    const std::uint32_t rest = 256 - share;
    const std::uint32_t low = (from & kPairs) * rest + (to & kPairs) * share + kHalves;
    const std::uint32_t high = (from >> 8 & kPairs) * rest + (to >> 8 & kPairs) * share + kHalves;
    return (low >> 8 & kPairs) | (high & ~kPairs);
}

struct Job {
    GfxSurface& target;
    PictureRect to;
    const GfxSurface& source;
    PictureRect from;
    Writing writing;
    VisiblePart visible;

    void WriteRow(const WordRow& row, std::int64_t i) const {
        row.Write(target, to.x + visible.columns.first, to.y + i, writing);
    }
    void ReadRow(WordRow& row, std::uint32_t y) const {
        row.Read(source, from.x, from.y + static_cast<int>(y), static_cast<unsigned>(from.w));
    }
};

void DrawNearest(const Job& job) {
    const PictureRange columns = job.visible.columns;
    Block<std::uint32_t> places;
    places.Reserve(columns.Size());
    for (std::int64_t i = columns.first; i < columns.last; ++i)
        places.Append(MiddleOf(i, job.from.w, job.to.w));
    WordRow in(static_cast<unsigned>(job.from.w));
    WordRow out(columns.Size());
    if (!in.IsMade() || !out.IsMade()) return;
    std::uint32_t inRow = UINT32_MAX;
    for (std::int64_t j = job.visible.rows.first; j < job.visible.rows.last; ++j) {
        const std::uint32_t row = MiddleOf(j, job.from.h, job.to.h);
        if (row != inRow) {
            job.ReadRow(in, row);
            inRow = row;
            const std::uint32_t* const words = in.Words();
            std::uint32_t* const made = out.Words();
            for (unsigned i = 0; i < columns.Size(); ++i)
                made[i] = words[places[i]];
        }
        job.WriteRow(out, j);
    }
}

void DrawBilinear(const Job& job) {
    const PictureRange columns = job.visible.columns;
    Block<Between> places;
    places.Reserve(columns.Size());
    for (std::int64_t i = columns.first; i < columns.last; ++i)
        places.Append(BetweenMiddles(i, job.from.w, job.to.w));
    WordRow in(static_cast<unsigned>(job.from.w));
    WordRow out(columns.Size());
    // The two source rows around the present one, scaled along the row; `held` says which.
    WordRow first(columns.Size());
    WordRow second(columns.Size());
    if (!in.IsMade() || !out.IsMade() || !first.IsMade() || !second.IsMade()) return;
    WordRow* scaled[2] = {&first, &second};
    std::uint32_t held[2] = {UINT32_MAX, UINT32_MAX};
    const auto scale = [&](std::uint32_t row, unsigned into) {
        job.ReadRow(in, row);
        const std::uint32_t* const words = in.Words();
        std::uint32_t* const made = scaled[into]->Words();
        for (unsigned i = 0; i < columns.Size(); ++i) {
            const Between& at = places[i];
            made[i] = MixOf(words[at.low], words[at.high], at.share);
        }
        held[into] = row;
    };
    for (std::int64_t j = job.visible.rows.first; j < job.visible.rows.last; ++j) {
        const Between at = BetweenMiddles(j, job.from.h, job.to.h);
        if (held[0] != at.low && held[1] == at.low) {
            std::swap(scaled[0], scaled[1]);
            std::swap(held[0], held[1]);
        }
        if (held[0] != at.low) scale(at.low, 0);
        if (held[1] != at.high) scale(at.high, 1);
        const std::uint32_t* const upper = scaled[0]->Words();
        const std::uint32_t* const lower = scaled[1]->Words();
        std::uint32_t* const made = out.Words();
        for (unsigned i = 0; i < columns.Size(); ++i)
            made[i] = MixOf(upper[i], lower[i], at.share);
        job.WriteRow(out, j);
    }
}

/// The stretch of a source that a target position stands for: whole pixels from `first` on, each
/// weighing `unit`, the outer two less.
struct Stretch {
    std::uint32_t first, last;              // the latter included
    std::uint32_t firstWeight, lastWeight;  // the latter 0 where there is one pixel alone
};

Stretch StretchOf(std::int64_t i, int size, int targetSize) {
    // In units of 1/targetSize source pixel.
    const std::int64_t start = i * size;
    const std::int64_t end = start + size;
    const std::int64_t first = start / targetSize;
    const std::int64_t last = (end - 1) / targetSize;
    const std::int64_t firstEnd = std::min((first + 1) * targetSize, end);
    return {static_cast<std::uint32_t>(first), static_cast<std::uint32_t>(last),
            static_cast<std::uint32_t>(firstEnd - start),
            last == first ? 0 : static_cast<std::uint32_t>(end - last * targetSize)};
}

/// The four bytes of a word, or sums of such.
struct Sums {
    std::uint64_t bytes[4];

    void Add(std::uint32_t word, std::uint64_t weight) {
        for (unsigned k = 0; k < 4; ++k)
            bytes[k] += (word >> (8 * k) & 0xFF) * weight;
    }
};

/// The sums of a source row under each target column, times `weight`, added to those of the rows
/// above.
void AddRow(const std::uint32_t* words, const Block<Stretch>& places, std::uint32_t unit,
            std::uint64_t weight, Block<Sums>& sums) {
    for (std::size_t i = 0; i < places.Count(); ++i) {
        const Stretch& at = places[i];
        Sums row{};
        for (std::uint32_t x = at.first + 1; x < at.last; ++x)
            row.Add(words[x], 1);
        for (std::uint64_t& byte : row.bytes)
            byte *= unit;
        row.Add(words[at.first], at.firstWeight);
        row.Add(words[at.last], at.lastWeight);
        for (unsigned k = 0; k < 4; ++k)
            sums[i].bytes[k] += row.bytes[k] * weight;
    }
}

void DrawArea(const Job& job) {
    constexpr int kMost = 1 << 24;
    if (job.from.w > kMost || job.from.h > kMost) return;
    const PictureRange columns = job.visible.columns;
    Block<Stretch> places;
    places.Reserve(columns.Size());
    for (std::int64_t i = columns.first; i < columns.last; ++i)
        places.Append(StretchOf(i, job.from.w, job.to.w));
    Block<Sums> sums;
    sums.Reserve(columns.Size());
    WordRow in(static_cast<unsigned>(job.from.w));
    WordRow out(columns.Size());
    if (!in.IsMade() || !out.IsMade()) return;
    const std::uint64_t all =
        static_cast<std::uint64_t>(job.from.w) * static_cast<unsigned>(job.from.h);
    std::uint32_t inRow = UINT32_MAX;
    for (std::int64_t j = job.visible.rows.first; j < job.visible.rows.last; ++j) {
        const Stretch rows = StretchOf(j, job.from.h, job.to.h);
        sums.Clear();
        for (unsigned i = 0; i < columns.Size(); ++i)
            sums.Append(Sums{});
        for (std::uint32_t y = rows.first; y <= rows.last; ++y) {
            if (y != inRow) job.ReadRow(in, y);
            inRow = y;
            const std::uint32_t weight = y == rows.first  ? rows.firstWeight
                                         : y == rows.last ? rows.lastWeight
                                                          : static_cast<std::uint32_t>(job.to.h);
            AddRow(in.Words(), places, static_cast<std::uint32_t>(job.to.w), weight, sums);
        }
        std::uint32_t* const made = out.Words();
        for (unsigned i = 0; i < columns.Size(); ++i) {
            made[i] = 0;
            for (unsigned k = 0; k < 4; ++k)
                made[i] |= static_cast<std::uint32_t>((sums[i].bytes[k] + all / 2) / all)
                           << (8 * k);
        }
        job.WriteRow(out, j);
    }
}

}  // namespace

void DrawScaled(GfxSurface& target, PictureRect to, const GfxSurface& source, PictureRect from,
                Scaling scaling, Writing writing) {
    if (to.w <= 0 || to.h <= 0 || !LiesInside(source, from)) return;
    const Job job{target, to, source, from, writing, VisiblePart(target, to)};
    if (job.visible.IsEmpty()) return;
    switch (scaling) {
        case Scaling::kNearest:
            return DrawNearest(job);
        case Scaling::kBilinear:
            return DrawBilinear(job);
        case Scaling::kArea:
            return DrawArea(job);
    }
}

}  // namespace gfx::kit
