// Loads the form file named, shows the form on a desktop in memory and, as soon as it has its pixels, says
// so.
#include <cstdio>

#include <bench/startup.h>
#include <levelwidgets/host/form_file/form_file.h>
#include <levelwidgets/platform/memory/desktop.h>

int main(int argc, char** argv) {
  using namespace levelwidgets;
  if (argc != 2) return 2;
  memory::Desktop desktop;
  const LoadedForm loaded = LoadForm(desktop, argv[1]);
  for (const Diagnostic& diagnostic : loaded.diagnostics) {
    std::fprintf(stderr, "%s\n", diagnostic.ToString().c_str());
  }
  if (!loaded.form) return 1;
  loaded.form->Show();
  const Picture picture = desktop.Capture(loaded.form->ScreenRect());
  return picture.pixels.empty() ? 1 : bench::TellReady(bench::PeakResidentBytes());
}
