// expect: Q
#include "Platform/Qt/QtRunLoop.h"
