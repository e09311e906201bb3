#pragma once
// The log of program starts and ends, "chessGUI.log" in the working folder.
#include <ctime>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

inline constexpr const char* kGuiLogFileName = "chessGUI.log";

// Local time as "%Y-%m-%d %H:%M:%S".
std::string FormatLocalTime(std::time_t time);

// Appends "<text> (<local time now>)" as one line, whole or not at all. Returns the error
// text of a failure, which callers may ignore: a log that cannot be written loses the line.
std::optional<std::string> AppendTimedLogLine(const std::filesystem::path& logFile,
                                              std::string_view text);
