// Several pixels at once: what the vectorised loops share. A source that includes this is compiled once for every
// target (hwy/foreach_target.h), so the guard lets the header through once for each. Nothing in here may be called from
// elsewhere, and no std:: template that the linker could share with code for older processors.

#include "core/pixel.h"

#include <cstddef>
#include <cstdint>
#include <hwy/highway.h>

#if defined(LUMENFOLD_CORE_LANES_H) == defined(HWY_TARGET_TOGGLE)
#ifdef LUMENFOLD_CORE_LANES_H
#undef LUMENFOLD_CORE_LANES_H
#else
#define LUMENFOLD_CORE_LANES_H
#endif

HWY_BEFORE_NAMESPACE();
namespace lumenfold {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

// As many pixels as fit a vector, but not more than most; most is a power of two and at least 4.
template <int most>
using Pixels = hn::CappedTag<Pixel32, most>;

// For passes over memory; wider loads gain nothing there and often cross a cache line.
using AllPixels = Pixels<8>;

template <class D>
using Ints = hn::Rebind<std::int32_t, D>;
template <class D>
using Floats = hn::Rebind<float, D>;

template <class D>
inline constexpr int lanesOf = static_cast<int>(hn::MaxLanes(D()));

template <class D>
HWY_INLINE hn::Vec<hn::Repartition<std::uint8_t, D>> bytes(D, hn::Vec<D> pixels) {
    return hn::BitCast(hn::Repartition<std::uint8_t, D>(), pixels);
}

// The sums of all bytes, at most 255.
template <class D>
HWY_INLINE hn::Vec<D> addBytes(D d, hn::Vec<D> a, hn::Vec<D> b) {
    return hn::BitCast(d, hn::SaturatedAdd(bytes(d, a), bytes(d, b)));
}

// start, start + step, start + 2 step, ... modulo 2^32
template <class D>
HWY_INLINE hn::Vec<D> steps(D d, std::uint32_t start, std::uint32_t step) {
    return hn::Add(hn::Set(d, start), hn::Mul(hn::Set(d, step), hn::Iota(d, 0)));
}

// Where a 256 x 256 texture's texel lies; column and row are 16.16 and wrap.
template <class D>
HWY_INLINE hn::Vec<D> texelIndex(D d, hn::Vec<D> column, hn::Vec<D> row) {
    return hn::Or(hn::And(hn::ShiftRight<8>(row), hn::Set(d, 0xFF00U)),
                  hn::And(hn::ShiftRight<16>(column), hn::Set(d, 0xFFU)));
}

// The pixels at these places, each loaded alone: the gathers of many processors are slower, on some by far.
template <class D>
HWY_INLINE hn::Vec<D> lookUp(D d, const Pixel32* source, hn::Vec<D> index) {
    constexpr int lanes = lanesOf<D>;
    HWY_ALIGN std::uint32_t at[lanes];
    hn::Store(index, d, at);
#if HWY_TARGET == HWY_SSE4 || HWY_TARGET == HWY_AVX2 || HWY_TARGET == HWY_AVX3
    // put together in registers: a vector load would have to wait for the stores of the single pixels
    const auto pixel = [source, &at](int i) HWY_ATTR { return static_cast<int>(source[at[i]]); };
    const __m128i first = _mm_setr_epi32(pixel(0), pixel(1), pixel(2), pixel(3));
    if constexpr (lanes == 4)
        return hn::Vec<D>{first};
#if HWY_TARGET != HWY_SSE4
    if constexpr (lanes >= 8) {
        const __m128i second = _mm_setr_epi32(pixel(4), pixel(5), pixel(6), pixel(7));
        const __m256i half = _mm256_inserti128_si256(_mm256_castsi128_si256(first), second, 1);
        if constexpr (lanes == 8)
            return hn::Vec<D>{half};
#if HWY_TARGET == HWY_AVX3
        if constexpr (lanes == 16) {
            const __m128i third = _mm_setr_epi32(pixel(8), pixel(9), pixel(10), pixel(11));
            const __m128i fourth = _mm_setr_epi32(pixel(12), pixel(13), pixel(14), pixel(15));
            const __m256i upper = _mm256_inserti128_si256(_mm256_castsi128_si256(third), fourth, 1);
            return hn::Vec<D>{_mm512_inserti64x4(_mm512_castsi256_si512(half), upper, 1)};
        }
#endif
    }
#endif
#else
    HWY_ALIGN Pixel32 pixels[lanes];
    for (int i = 0; i < lanes; ++i)
        pixels[i] = source[at[i]];
    return hn::Load(d, pixels);
#endif
}

// Truncated towards zero; a value that no 32-bit integer holds (NaN too) becomes the smallest one, as by truncate().
using FourFloats = hn::FixedTag<float, 4>;
HWY_INLINE hn::Vec<Ints<FourFloats>> truncateLanes(hn::Vec<FourFloats> values) {
    const FourFloats d;
    const Ints<FourFloats> integers;
#if HWY_ARCH_X86 && HWY_TARGET != HWY_EMU128
    return hn::Vec<Ints<FourFloats>>{_mm_cvttps_epi32(values.raw)}; // what the instruction does
#else
    const auto fits = hn::And(hn::Ge(values, hn::Set(d, -2147483648.0F)), hn::Lt(values, hn::Set(d, 2147483648.0F)));
    return hn::IfThenElse(hn::RebindMask(integers, fits), hn::ConvertTo(integers, values),
                          hn::Set(integers, hwy::LimitsMin<std::int32_t>()));
#endif
}

} // namespace HWY_NAMESPACE
} // namespace lumenfold
HWY_AFTER_NAMESPACE();

#endif // per target
