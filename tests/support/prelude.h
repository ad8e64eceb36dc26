#ifndef ZQ_TESTS_SUPPORT_PRELUDE_H
#define ZQ_TESTS_SUPPORT_PRELUDE_H

// What most tests use.

#include "numbers.h"
#include "random.h"
#include "report.h"
#include "scalars.h"
#include "values.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <iomanip>
#include <limits>
#include <set>
#include <sstream>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

using namespace Zq;
using ZqTest::epsilon;
using ZqTest::Random;

#endif
