// quorvane-host32: a host for the add-in that is as awkward as a real one may be: the workbench behind IDispatch, with
// windows of its own and a message loop that knows nothing of anybody's dialogs. See Options.h for its command line and
// Commands.h for how a script drives it.

#include <cstdio>

#include "base/Error.h"
#include "native/codepages/CodePages.h"
#include "windows/com/ErrorTranslation.h"
#include "windows/host32/Commands.h"
#include "windows/host32/MainFrame.h"
#include "windows/host32/Options.h"
#include "workbench/project/GroupBuilder.h"
#include "workbench/project/Opener.h"

namespace quorvane::container {

namespace {

std::unique_ptr<workbench::Workbench> SmallGroup(const CodePage& page) {
  return workbench::Group{}
      .Project(u"Shop")
      .Module(u"Prices",
              u"Option Explicit\r\n"
              u"' the price of one piece\r\n"
              u"Private price As Currency\r\n"
              u"\r\n"
              u"Public Sub SetPrice(ByVal value As Currency)\r\n"
              u"    price = value ' price in euro\r\n"
              u"    Debug.Print \"price: \"; price\r\n"
              u"End Sub\r\n"
              u"\r\n"
              u"Public Function Total(ByVal count As Long) As Currency\r\n"
              u"    Total = price * count\r\n"
              u"End Function")
      .Class(u"Basket",
             u"Private items As Collection\r\n"
             u"\r\n"
             u"Public Sub Add(ByVal price As Currency)\r\n"
             u"    items.Add price\r\n"
             u"End Sub")
      .Project(u"Tests")
      .Module(u"TestPrices",
              u"Sub TestTotal()\r\n"
              u"    SetPrice 3\r\n"
              u"    Debug.Assert Total(2) = 6 ' price times count\r\n"
              u"End Sub")
      .Build(page);
}

std::shared_ptr<workbench::Workbench> Opened(const Options& options, const CodePage& page) {
  if (options.files.empty()) return SmallGroup(page);
  workbench::OpenedGroup group = workbench::OpenFiles(options.files, page);
  for (const std::string& warning : group.warnings) std::printf("! %s\n", warning.c_str());
  return std::move(group.workbench);
}

/// Knows of nobody's dialogs and accelerators but its own.
int Loop(MainFrame& frame) {
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (TranslateMDISysAccel(frame.Client(), &message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
    frame.TheWorkbench().Turns().Next();
  }
  return static_cast<int>(message.wParam);
}

int Run(int argc, wchar_t** argv) {
  const Options options = Options::Parse(argc, argv);
  com::Check(OleInitialize(nullptr));
  const std::string ansi = std::to_string(GetACP());
  const std::unique_ptr<CodePage> page = native::NewCodePage(options.codePage.empty() ? ansi : options.codePage);
  const auto exporter = std::make_shared<Exporter>(options.meanness);
  int status = 0;
  {
    const auto workbench = Opened(options, *page);
    MainFrame frame(workbench, exporter);
    Commands commands(frame, exporter, options);
    commands.Listen();
    std::puts("ready");
    std::fflush(stdout);
    if (options.connectMode >= 0) {
      std::fputs(commands.Run("connect " + std::to_string(options.connectMode)).c_str(), stdout);
      std::fflush(stdout);
    }
    status = Loop(frame);
  }
  OleUninitialize();
  std::printf("left: %s\n", exporter->Living.Text().c_str());
  return exporter->Living.Living().empty() ? status : 3;
}

}  // namespace

}  // namespace quorvane::container

int main() {
  int argc = 0;
  wchar_t** const argv = CommandLineToArgvW(GetCommandLineW(), &argc);
  try {
    return quorvane::container::Run(argc, argv);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "quorvane-host32: %s\n", error.what());
    return 2;
  }
}
