#pragma once
// A problem as a printable diagram: the board with its pieces, the stipulation with the
// piece counts as problemists print them ("#3 (7+9)"), and the description as its source.
#include <string>

#include "problems/Problem.h"

namespace diagram {

// "(7+9)": the white and the black pieces of the start position.
std::string PieceCountText(const TProblem& problem);

// A standalone SVG picture. The pieces are the solid chess glyphs of the DejaVu fonts,
// filled white or black and outlined, as the board view of the desktop program draws them.
std::string Svg(const TProblem& problem);

// A diagram environment of the chess-problem-diagrams LaTeX package (\usepackage{diagram}),
// with the German piece letters it reads and the keys, when the problem has them, as the
// solution.
std::string Latex(const TProblem& problem);

}  // namespace diagram
