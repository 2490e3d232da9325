// expect: symbolIsNotInTheTable
#include "Models/Symbol.h"

constexpr auto unknown = orvelle::operator""_symbol("no.such.symbol", 14);
