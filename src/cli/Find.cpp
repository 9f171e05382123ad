#include <set>
#include <string>

#include "addin/core/ErrorManager.h"
#include "addin/core/Globals.h"
#include "addin/search/ResultCollection.h"
#include "addin/settings/GlobalSetting.h"
#include "base/Error.h"
#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/Diagnostics.h"
#include "cli/ExitStatus.h"
#include "cli/Interrupt.h"
#include "cli/Output.h"
#include "cli/Places.h"
#include "cli/Reporter.h"
#include "cli/ResultPage.h"
#include "cli/Session.h"
#include "cli/StylesheetFile.h"
#include "platform/XmlDocument.h"

namespace quorvane::cli {

namespace {

/// An object that is never taken apart: the end of the process gives its memory back all at once.
template <class T, class... Args>
T& KeepUntilExit(const Args&... args) {
  static T* const kept = new T(args...);
  return *kept;
}

/// Makes the user's stylesheet the setting, or raises an error that names its file.
void UseStylesheet(const std::string& path) {
  if (path.empty()) return;
  const std::u16string text = ReadStylesheet(path);
  const auto document = ThePlatform().NewXmlDocument();
  const auto fail = [&path](const std::u16string& reason) {
    RaiseError(ErrorNumber::InvalidProcedureCall, FromUtf8(path) + u": " + reason);
  };
  if (!document->LoadXml(text)) fail(document->LoadError());
  try {
    document->CompileStylesheet();
  } catch (const Error& error) {
    fail(error.Description);
  }
  Globals::gobjSetting->SetXSL(text);
}

/// Runs the search; true when it was cancelled.
bool Search(ResultPage& page, Session& session, const Output& output) {
  session.ThePlatform().Loop().StopWanted = [&output] { return Interrupted() || output.Closed(); };
  session.ThePlatform().Loop().Cancel = [&page] { page.mobjTask.mblnCancel = true; };
  try {
    page.mobjTask.Run(kTaskSearch);
  } catch (const Error& error) {
    if (error.Number != kErrUserCanceled) throw;
    return true;
  }
  return Interrupted();
}

}  // namespace

int Find(const Options& options) {
  Session& session = KeepUntilExit<Session>(options);
  session.Apply(options);
  session.CheckOutput(options);
  if (options.format == Format::Lines) UseStylesheet(options.xsl);
  Output output(options.output);
  ResultPage& page = KeepUntilExit<ResultPage>(options.format == Format::Lines && !options.quiet, options.maxCount);
  std::u16string module;
  const auto scanning = page.mobjTask.OnScanModule.Subscribe([&module](const std::u16string& name) { module = name; });
  std::set<std::string> cutShort;
  const auto failing =
      page.mobjTask.OnModuleError.Subscribe([&cutShort](const PositionInfo& where, const Error& error, bool& goOn) {
        if (error.Number != static_cast<std::int32_t>(ErrorNumber::Overflow)) return;
        const FilePlace place = PlaceOf(where);
        if (cutShort.insert(place.path).second)
          TellWarning(place.path + ":" + std::to_string(place.line) +
                      ": the line has more than 32767 columns; the rest of the file is not searched");
        goOn = true;
      });
  const auto reporter = NewReporter(options, page, output);
  CatchInterrupt();
  const bool canceled = [&] {
    try {
      return Search(page, session, output);
    } catch (const Error& error) {
      reporter->Cut();
      output.Finish();  // what was found before the error stays
      throw WhereItHappened(error, module);
    }
  }();
  if (options.format == Format::Lines) page.CheckLines();
  reporter->Finish();
  output.Finish();
  if (canceled && Interrupted()) return InterruptStatus();
  return page.CountOfTold() > 0 ? kStatusFound : kStatusNothing;
}

}  // namespace quorvane::cli
