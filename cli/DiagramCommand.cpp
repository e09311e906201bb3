#include <iostream>
#include <memory>
#include <string>

#include "app/Diagram.h"
#include "app/Options.h"
#include "cli/Commands.h"
#include "cli/SvgToPng.h"
#include "core/SafeFile.h"
#include "problems/Collection.h"

namespace {

struct TDiagramArguments {
  std::string file;
  int id = 0;
  std::string output;
  double scale = 2;
};

std::string ExtensionOf(const std::string& path) {
  const std::size_t dot = path.rfind('.');
  return dot == std::string::npos ? "" : path.substr(dot + 1);
}

void Fail(const std::string& text) {
  std::cerr << text << "\n";
  throw CommandExit{2};
}

void Diagram(const TDiagramArguments& args) {
  const std::string extension = ExtensionOf(args.output);
  if (extension != "svg" && extension != "png" && extension != "tex")
    Fail("The output must end in .svg, .png or .tex: " + args.output);
  for (const std::string& warning : ReadOptions()) std::cerr << warning << "\n";
  TProblemCollection collection;
  if (const auto error = collection.ReadFile(args.file, {.nLanguageId = Options().nLanguageId}))
    Fail(error->Describe());
  const TProblem* problem = collection.Find(args.id);
  if (!problem) Fail("No problem " + std::to_string(args.id) + " in " + args.file);
  std::optional<std::string> error;
  if (extension == "png")
    error = WriteSvgAsPng(diagram::Svg(*problem), args.scale, args.output);
  else
    error = safefile::Save(args.output,
                           extension == "svg" ? diagram::Svg(*problem) : diagram::Latex(*problem));
  if (error) Fail(*error);
  std::cout << args.output << ": problem " << args.id << " " << problem->stipulation.Text() << " "
            << diagram::PieceCountText(*problem) << "\n";
}

}  // namespace

// "longmate diagram FILE.cp --problem ID -o OUT.svg|png|tex".
void AddDiagramCommand(CLI::App& app) {
  auto args = std::make_shared<TDiagramArguments>();
  CLI::App* command = app.add_subcommand(
      "diagram",
      "Draw a problem as a printable diagram (SVG, PNG, or LaTeX for the diagram package)");
  command->add_option("file", args->file, "problem file (.cp)")->required();
  command->add_option("--problem", args->id, "the problem's number")->required();
  command->add_option("-o,--output", args->output, "OUT.svg, OUT.png or OUT.tex")->required();
  command->add_option("--scale", args->scale, "PNG pixels per drawing pixel (default 2)")
      ->check(CLI::Range(0.25, 16.0));
  command->callback([args] { Diagram(*args); });
}
