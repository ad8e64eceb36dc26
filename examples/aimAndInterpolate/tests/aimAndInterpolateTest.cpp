// The rotations of the example, and the program as a user meets it.

#include "flight.h"
#include "rotationTrack.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

using namespace AimAndInterpolate;
using namespace Zq;

namespace
{

using Motion = Rotation ( RotationTrack::* )( double ) const;

// The speed of turning in world axes, from the time to a little after it.
GeVector3<double> computeVelocity( const RotationTrack& track, Motion motion, double time, double step )
{
    GeVector3<double> axis;
    double angle = 0;
    const Rotation turn = ( track.*motion )( time + step ) * ( track.*motion )( time ).computeInverse();
    ( turn.getW() < 0 ? -turn : turn ).getAxisAngle( axis, angle );
    return axis * ( angle / step );
}

bool isSameRotation( const Rotation& a, const Rotation& b )
{
    return a.isEqual( b, 1e-9 ) || a.isEqual( -b, 1e-9 );
}

TEST( AimAndInterpolate, AnAimedCameraSeesItsTargetUprightInTheMiddle )
{
    const GePoint3<double> eye( 1, 2, 3 );
    for ( const GePoint3<double>& target : { GePoint3<double>( 0, 0, 0 ), GePoint3<double>( 4, 9, -7 ),
              GePoint3<double>( 1, 2.5, 9 ), GePoint3<double>( -3, 2, 3 ) } )
    {
        const Rotation rotation = aimCamera( eye, target );
        const GeVector3<double> seen = rotation.computeConjugate() * ( target - eye );
        EXPECT_TRUE( seen.isEqual( GeVector3<double>( 0, 0, -( target - eye ).length() ), 1e-12 ) );
        const GeVector3<double> right = rotation * GeVector3<double>( 1, 0, 0 );
        EXPECT_NEAR( right.getY(), 0, 1e-12 );
        EXPECT_GT( ( rotation * GeVector3<double>( 0, 1, 0 ) ).getY(), 0 );
    }
}

TEST( AimAndInterpolate, BothWaysPassTheKeysAndOnlySquadKeepsItsSpeed )
{
    const Flight flight = makeFlight();
    const RotationTrack track = makeTrack( flight );
    double jump = 0;
    for ( std::size_t i = 0; i < flight.keys.size(); ++i )
    {
        const auto time = static_cast<double>( i );
        const Key& key = flight.keys[i];
        const GeVector3<double> sight = ( flight.balls[key.ball].center - key.eye ).computeUnit();
        EXPECT_TRUE( ( track.slerp( time ) * GeVector3<double>( 0, 0, -1 ) ).isEqual( sight, 1e-9 ) );
        EXPECT_TRUE( isSameRotation( track.squad( time ), track.slerp( time ) ) );
        EXPECT_TRUE( ( computeEye( flight, time ) - key.eye ).isEqual( GeVector3<double>(), 1e-12 ) );
        if ( i > 0 && i + 1 < flight.keys.size() )
        {
            constexpr double STEP = 1e-5;
            const auto computeJump = [&]( Motion motion )
            {
                return (
                    computeVelocity( track, motion, time, STEP ) - computeVelocity( track, motion, time - STEP, STEP ) )
                    .length();
            };
            jump = std::max( jump, computeJump( &RotationTrack::slerp ) );
            EXPECT_LT( computeJump( &RotationTrack::squad ), 1e-3 );
        }
    }
    EXPECT_GT( jump, 1 );
}

TEST( AimAndInterpolate, TheSignsOfTheKeysPlayNoPart )
{
    const RotationTrack track = makeTrack( makeFlight() );
    std::vector<Rotation> keys;
    for ( int i = 0; i <= 4; ++i )
    {
        keys.push_back( track.slerp( i ) * ( i % 2 == 0 ? 1.0 : -1.0 ) );
    }
    const RotationTrack turned( keys );
    for ( int i = 0; i <= 32; ++i )
    {
        const double time = track.getEnd() * i / 32;
        EXPECT_TRUE( isSameRotation( turned.slerp( time ), track.slerp( time ) ) ) << time;
        EXPECT_TRUE( isSameRotation( turned.squad( time ), track.squad( time ) ) ) << time;
    }
}

// The program ---------------------------------------------------------------------------------------------------------

namespace fs = std::filesystem;

class AimAndInterpolateProgram : public testing::Test
{
protected:
    void SetUp() override
    {
        _folder = fs::temp_directory_path() / ( "aimAndInterpolate-" + std::to_string( std::random_device{}() ) );
        fs::create_directories( _folder );
    }
    void TearDown() override { fs::remove_all( _folder ); }

    int run( const std::string& arguments ) const
    {
        const std::string command =
            "cd '" + _folder.string() + "' && '" AIM_AND_INTERPOLATE_PROGRAM "' " + arguments + " > out 2> err";
        return WEXITSTATUS( std::system( command.c_str() ) ); // NOLINT(cert-env33-c): it is what a user does
    }

    std::string read( const std::string& name ) const
    {
        std::ifstream stream( _folder / name, std::ios::binary );
        std::ostringstream text;
        text << stream.rdbuf();
        return text.str();
    }

private:
    fs::path _folder;
};

TEST_F( AimAndInterpolateProgram, PrintsTheKeysAsThePageShowsThem )
{
    ASSERT_EQ( run( "" ), 0 ) << read( "err" );
    EXPECT_EQ( read( "err" ), "" );
    std::ifstream stream( ZQ_DOCS_DIR "/eulerConventions.md" );
    std::ostringstream page;
    page << stream.rdbuf();
    const std::string printed = read( "out" );
    const std::string table = printed.substr( 0, printed.find( "\nspeed" ) );
    EXPECT_NE( page.str().find( table ), std::string::npos ) << printed;
}

TEST_F( AimAndInterpolateProgram, RefusesBadArgumentsInOneLine )
{
    for ( const std::string arguments : { "--bogus", "extra", "--out", "--out picture.png", "''", "'a\nb'" } )
    {
        EXPECT_EQ( run( arguments ), 2 ) << arguments;
        const std::string errors = read( "err" );
        EXPECT_EQ( std::count( errors.begin(), errors.end(), '\n' ), 1 ) << arguments << errors;
        EXPECT_EQ( errors.rfind( "aimAndInterpolate: ", 0 ), 0U ) << errors;
        EXPECT_EQ( read( "out" ), "" ) << arguments;
    }
}

} // namespace
