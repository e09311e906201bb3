#pragma once
// The progress line of a pass: "Pass 1b, 1. Rh1-h5 42.0% 123456 SH:200h,TR:5000(120)".
#include <string>

#include "app/SolvingEvents.h"

// The pass and its letter, the first move under analysis numbered "1. ", the share of the
// first moves done and the positions; under heuristics their mask in hexadecimal, then the
// register's entries with the doubtful answers filed among them. Ends in blanks and a
// carriage return, so that the next line overwrites it.
std::string PassProgressLine(const TPassProgress& progress);
