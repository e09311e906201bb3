#pragma once
// File names the program derives from problem data (positions, piece sets, problem numbers)
// end up joined to a folder the user named. Whatever the data, such a name must stay one plain
// entry of that folder: no folder separators, no drive or root, no "." or "..", no control
// characters.
#include <string>
#include <string_view>

namespace filename {

// Whether name is already such an entry.
bool IsPlain(std::string_view name);
// The name with every character that could leave the folder replaced by '_', and "", "." and
// ".." replaced by "_": a plain entry whatever came in.
std::string Plain(std::string_view name);

}  // namespace filename
