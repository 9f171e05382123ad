#include <string>

#include "addin/core/Globals.h"
#include "addin/core/Utilities.h"
#include "addin/search/TaskManager.h"
#include "base/Error.h"
#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/Diagnostics.h"
#include "cli/ExitStatus.h"
#include "cli/Interrupt.h"
#include "cli/Output.h"
#include "cli/Session.h"
#include "workbench/save/GroupSaver.h"
#include "workbench/save/UnifiedDiff.h"

namespace quorvane::cli {

namespace {

void TellDropped(const std::string& path, const std::vector<std::string>& hiddenLines) {
  for (const std::string& line : hiddenLines) TellWarning(path + ": its declaration is gone, and with it: " + line);
}

bool ShowDiff(workbench::Workbench& host, Output& output) {
  bool any = false;
  for (const workbench::PlannedFile& file : workbench::PlanSave(host)) {
    if (file.before == file.after) continue;
    any = true;
    TellDropped(file.path, file.droppedHiddenLines);
    output.Write(workbench::UnifiedDiff(file.path, file.before, file.after));
  }
  return any;
}

bool Save(workbench::Workbench& host, Output& output) {
  const auto files = workbench::SaveGroup(host);
  for (const workbench::SavedFile& file : files) {
    TellDropped(file.path, file.droppedHiddenLines);
    output.Write(file.path + " +" + std::to_string(file.added) + " -" + std::to_string(file.removed) + '\n');
  }
  return !files.empty();
}

void RefuseOutside(const Options& options, const workbench::Workbench& host) {
  if (options.writeOutside) return;
  std::string names;
  for (const std::string& path : workbench::FilesOutside(host)) names += (names.empty() ? "" : ", ") + path;
  if (names.empty()) return;
  RaiseError(ErrorNumber::PathFileAccess,
             FromUtf8(names + ": outside the folders of all projects, and listed by an absolute path; nothing was "
                              "written. --write-outside writes it all the same"));
}

/// Tells of what the replacement loses without -s; with -s it is taken as it stands.
void WarnOfEscapes(const Options& options) {
  if (options.mode != gsRegular || options.singleLine) return;
  std::string names;
  for (const std::u16string& escape : Globals::gobjUtilities->VanishingEscapes(FromUtf8(options.replacement)))
    names += (names.empty() ? "" : ", ") + ToUtf8(escape);
  if (names.empty()) return;
  TellWarning("REPLACEMENT: " + names +
              ": only \\t, \\r, \\n and \\\\ stand for something, other escapes vanish; write \\\\ for a backslash");
}

}  // namespace

int Replace(const Options& options) {
  Session session(options);
  session.Apply(options);
  session.CheckOutput(options);
  WarnOfEscapes(options);
  CatchInterrupt();
  std::u16string module;
  {
    TaskManager task;
    const auto scanning = task.OnScanModule.Subscribe([&module](const std::u16string& name) { module = name; });
    try {
      task.Run(kTaskReplaceAll);
    } catch (const Error& error) {
      throw WhereItHappened(error, module);
    }
  }
  if (Interrupted()) return InterruptStatus();
  Output output(options.output);
  if (options.write) RefuseOutside(options, session.Host());
  bool changed = false;
  try {
    changed = options.write ? Save(session.Host(), output) : ShowDiff(session.Host(), output);
  } catch (const Error& error) {
    if (!error.Is(ErrorNumber::UserInterrupt)) throw;
    TellError(error.what());
    return InterruptStatus();
  }
  output.Finish();
  if (options.write && Interrupted()) {
    TellError("interrupted, but all files are saved");
    return InterruptStatus();
  }
  return changed ? kStatusFound : kStatusNothing;
}

}  // namespace quorvane::cli
