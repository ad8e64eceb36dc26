#include <zq/interop/executionPolicyTaskRunner.h>
#include <zq/interop/tbbTaskRunner.h>
#include <zq/interop/threadTaskRunner.h>

#include <gtest/gtest.h>

#include <execution>
#include <numeric>
#include <stdexcept>
#include <vector>

using namespace Zq;

namespace
{

class TaskRunners : public testing::TestWithParam<TaskRunner*>
{
};

template <class Body>
void runAll( TaskRunner& runner, std::size_t count, Body body )
{
    runner.run(
        count, []( void* context, std::size_t i ) { ( *static_cast<Body*>( context ) )( i ); }, &body );
}

ThreadTaskRunner alone( 1 );
ThreadTaskRunner three( 3 );
TbbTaskRunner tbbRunner;
ExecutionPolicyTaskRunner parallel( std::execution::par );

INSTANTIATE_TEST_SUITE_P( All, TaskRunners, testing::Values( &alone, &three, &tbbRunner, &parallel ) );

TEST_P( TaskRunners, RunEveryTaskOnce )
{
    for ( int repeat = 0; repeat < 200; ++repeat )
        for ( const std::size_t count : std::initializer_list<std::size_t>{ 0, 1, 2, 100 } )
        {
            std::vector<int> nbRuns( count );
            runAll( *GetParam(), count, [&]( std::size_t i ) { ++nbRuns[i]; } );
            EXPECT_EQ( nbRuns, std::vector<int>( count, 1 ) );
        }
}

TEST_P( TaskRunners, HandOnAnException )
{
    for ( int repeat = 0; repeat < 20; ++repeat )
    {
        const auto fail = []( std::size_t i )
        {
            if ( i % 7 == 3 )
                throw std::runtime_error( "task" );
        };
        EXPECT_THROW( runAll( *GetParam(), 50, fail ), std::runtime_error );
        std::vector<int> nbRuns( 50 ); // and go on afterwards
        runAll( *GetParam(), 50, [&]( std::size_t i ) { ++nbRuns[i]; } );
        EXPECT_EQ( nbRuns, std::vector<int>( 50, 1 ) );
    }
}

TEST_P( TaskRunners, RunTasksOfTasks )
{
    std::vector<int> nbRuns( 100 );
    runAll( *GetParam(), 10,
        [&]( std::size_t i ) { runAll( *GetParam(), 10, [&]( std::size_t k ) { ++nbRuns[10 * i + k]; } ); } );
    EXPECT_EQ( nbRuns, std::vector<int>( 100, 1 ) );
}

} // namespace
