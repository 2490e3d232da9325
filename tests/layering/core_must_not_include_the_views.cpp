// expect: Q
#include "Views/Qt/QtViewHost.h"
