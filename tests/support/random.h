#ifndef ZQ_TESTS_SUPPORT_RANDOM_H
#define ZQ_TESTS_SUPPORT_RANDOM_H

#include <zq/primitives/geVector3.h>

#include <gtest/gtest.h>

#include <random>

namespace ZqTest
{

/// The number of a run in a loop over random inputs. While it lives, every failure tells it, and the seed.
class Run
{
public:
    Run( unsigned seed, int number )
        : _number( number ), _trace( __FILE__, __LINE__, ::testing::Message() << "seed " << seed << ", run " << number )
    {
    }
    operator int() const { return _number; } // NOLINT(google-explicit-constructor): it is the number

private:
    int _number;
    ::testing::ScopedTrace _trace;
};

/// What `for ( const auto i : random.runs( count ) )` goes through.
class Runs
{
public:
    struct Iterator
    {
        Run operator*() const { return { seed, number }; }
        void operator++() { ++number; }
        bool operator!=( const Iterator& other ) const { return number != other.number; }
        unsigned seed;
        int number;
    };
    Runs( unsigned seed, int count ) : _seed( seed ), _count( count ) {}
    Iterator begin() const { return { _seed, 0 }; }
    Iterator end() const { return { _seed, _count }; }

private:
    unsigned _seed;
    int _count;
};

/// Seeded inputs: the same sequence on every machine and standard library, so that a failure can be repeated.
class Random
{
public:
    explicit Random( unsigned seed ) : _seed( seed ), _engine( seed ) {}

    /// The numbers from 0 to below count, each told by what fails meanwhile.
    Runs runs( int count ) const { return { _seed, count }; }

    /// In [lower, upper). Made by hand, because the standard distributions differ between libraries.
    template <class T>
    T uniform( T lower, T upper )
    {
        const double low = static_cast<double>( lower ), range = static_cast<double>( upper ) - low;
        return static_cast<T>( low + range * ( static_cast<double>( _engine() ) / 4294967296.0 ) );
    }

    /// In [0, count).
    int index( int count ) { return static_cast<int>( _engine() % static_cast<unsigned>( count ) ); }

    template <class T>
    Zq::GeVector3<T> vector( T size )
    {
        return { uniform( -size, size ), uniform( -size, size ), uniform( -size, size ) };
    }

    template <class T>
    Zq::GePoint3<T> point( T size )
    {
        return Zq::GePoint3<T>( vector<T>( size ) );
    }

    /// Uniform over the sphere.
    template <class T>
    Zq::GeUnitVector3<T> direction()
    {
        for ( ;; )
        {
            const Zq::GeVector3<T> v = vector<T>( T( 1 ) );
            if ( v.lengthSquared() <= T( 1 ) && v.lengthSquared() > T( 0.01 ) )
                return v.computeUnit();
        }
    }

private:
    unsigned _seed;
    std::mt19937 _engine;
};

} // namespace ZqTest

#endif
