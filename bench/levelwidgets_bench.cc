// Prints the project's figures beside what no program could do without.
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <iostream>

#include <nlohmann/json.hpp>

#include <bench/figures.h>
#include <bench/measure.h>

namespace {

using levelwidgets::bench::Figure;

constexpr const char* kUsage =
    "usage: levelwidgets-bench [--json]\n"
    "Measures the project's figures on one core, and a floor in the same run: what no program could do "
    "without.\n";

void PrintTable(const std::vector<Figure>& figures) {
  std::printf("%-54s %12s %12s %-6s %12s %7s %12s %-8s %s\n", "what", "median", "best", "", "floor", "ratio",
              "target", "reached", "floor is");
  for (const Figure& figure : figures) {
    const int decimals = figure.median >= 1000 ? 0 : figure.median >= 1 ? 2 : 3;
    std::printf("%-54s %12.*f %12.*f %-6s %12.*f %7.1f %12.*f %-8s %s\n", figure.what.c_str(), decimals,
                figure.median, decimals, figure.best, figure.unit.c_str(), figure.floor < 1 ? 4 : decimals,
                figure.floor, figure.Ratio(), decimals, figure.target, figure.Reached() ? "yes" : "no",
                figure.floor_is.c_str());
  }
}

void PrintJson(const std::vector<Figure>& figures) {
  nlohmann::ordered_json all = nlohmann::ordered_json::array();
  for (const Figure& figure : figures) {
    all.push_back({{"what", figure.what},
                   {"unit", figure.unit},
                   {"median", figure.median},
                   {"best", figure.best},
                   {"floor", figure.floor},
                   {"floor_is", figure.floor_is},
                   {"ratio", figure.Ratio()},
                   {"target", figure.target},
                   {"at_least", figure.at_least},
                   {"reached", figure.Reached()}});
  }
  std::cout << all.dump(2) << "\n";
}

}  // namespace

int main(int argc, char** argv) {
  const bool json = argc == 2 && std::strcmp(argv[1], "--json") == 0;
  const bool help = argc == 2 && std::strcmp(argv[1], "--help") == 0;
  if (help || (argc > 1 && !json)) {
    (help ? std::cout : std::cerr) << kUsage;
    return help ? 0 : 2;
  }
  try {
    if (levelwidgets::bench::PinToOneCore() < 0)
      std::cerr << "Not pinned to one core: the figures will waver.\n";
    const auto folder = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    const auto figures = levelwidgets::bench::MeasureFigures(folder.string());
    json ? PrintJson(figures) : PrintTable(figures);
    return std::ranges::all_of(figures, &Figure::Reached) ? 0 : 1;
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return 2;
  }
}
