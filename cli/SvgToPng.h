#pragma once
#include <optional>
#include <string>

// Draws an SVG picture into a PNG file, scale times its size. Returns the error text, nothing
// on success.
std::optional<std::string> WriteSvgAsPng(const std::string& svg, double scale,
                                         const std::string& path);
