// expect: QString
#include <QString>
