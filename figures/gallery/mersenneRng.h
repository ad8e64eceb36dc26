#ifndef ZQ_FIGURES_GALLERY_MERSENNERNG_H
#define ZQ_FIGURES_GALLERY_MERSENNERNG_H

#include <zq/primitives/rnRng.h>

#include <random>

namespace Figures
{

/// A generator for the library's samplers over the standard Mersenne twister: the same numbers on every machine.
class MersenneRng final : public Zq::RnRng<float>
{
public:
    explicit MersenneRng( unsigned int seed ) : _engine( seed ) {}

    /// One of the 2^24 multiples of 2^-24 from 0 up to, but not including, 1: all of them exact floats, all equally
    /// likely. (std::uniform_real_distribution<float> differs between standard libraries and can return its bound.)
    float operator()() override { return static_cast<float>( _engine() >> 8U ) * 0x1p-24F; }

private:
    std::mt19937 _engine;
};

} // namespace Figures

#endif
