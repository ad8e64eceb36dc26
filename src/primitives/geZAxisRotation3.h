#ifndef ZQ_PRIMITIVES_GEZAXISROTATION3_H
#define ZQ_PRIMITIVES_GEZAXISROTATION3_H

#include "geAxisRotation3.h" // has all three

#endif
