#include "cli/Session.h"

#include <algorithm>
#include <filesystem>

#include "addin/core/Globals.h"
#include "addin/settings/GlobalSetting.h"
#include "base/Error.h"
#include "base/FilePath.h"
#include "base/Text.h"
#include "cli/Diagnostics.h"
#include "platform/RegExp.h"
#include "vbide/VBIDE.h"
#include "workbench/find/LineMatcher.h"
#include "workbench/model/Module.h"

namespace quorvane::cli {

namespace {

using workbench::Component;
using workbench::Project;

bool NeedsPane(gsArea area) {
  return area == gsCurModule || area == gsCurProcedure || area == gsSelection;
}

[[noreturn]] void Fail(const std::string& message) {
  RaiseError(ErrorNumber::InvalidProcedureCall, FromUtf8(message));
}

/// Told as an error where the area needs what is amiss, as a warning elsewhere.
void Complain(bool needed, const std::string& message) {
  if (needed) Fail(message);
  TellWarning(message);
}

std::vector<std::shared_ptr<Project>> ProjectsNamed(const std::vector<std::shared_ptr<Project>>& projects,
                                                    const std::u16string& name) {
  std::vector<std::shared_ptr<Project>> found;
  for (const auto& project : projects) {
    if (EqualsNoCaseAscii(project->Name(), name)) found.push_back(project);
  }
  return found;
}

/// The lines of code of `module` that the options name as the area's place. Raises an error for a line that is none.
vbide::Selection PlaceIn(const workbench::Component& component, const Options& options) {
  const workbench::Module& module = *component.TheModule();
  const std::string option = options.area == gsSelection ? "--select" : "--at";
  const auto lineOf = [&](std::int32_t named) {
    const std::int32_t count = module.CountOfLines();
    const std::int32_t line = options.fileLines ? module.Saved()->CodeLine(named) : named;
    if (line >= 1 && line <= count) return line;
    const std::string which = option + ": line " + std::to_string(named) + " of ";
    if (count == 0) Fail(which + ToUtf8(component.Name()) + " does not exist: the module is empty");
    if (!options.fileLines)
      Fail(which + ToUtf8(component.Name()) + " does not exist: the module has " + std::to_string(count));
    Fail(which + component.Path() + " is no line of code; those are among " + std::to_string(module.FileLine(1)) +
         " to " + std::to_string(module.FileLine(count)));
  };
  vbide::Selection place = *options.at;
  place.StartLine = lineOf(place.StartLine);
  place.EndLine = lineOf(place.EndLine);
  return place;
}

/// What lets a module through that the search has to look at.
workbench::Sieve SieveOf(const Options& options, Platform& platform) {
  const std::u16string text = FromUtf8(options.text);
  if (options.mode == gsRegular) {
    const auto regExp = platform.NewRegExp();
    regExp->Pattern = text;
    regExp->IgnoreCase = !options.matchCase;
    return {regExp->RequiredTexts(), options.matchCase};
  }
  const workbench::MatchOptions match{options.wholeWord, options.matchCase, options.mode == gsPattern};
  try {
    return workbench::SieveOf(*workbench::MakeLineMatcher(text, match), match);
  } catch (const Error&) {
    return {};  // the search tells what is wrong with the pattern
  }
}

/// Null where every module is needed whole.
std::shared_ptr<const workbench::Sieve> SieveFor(const Options& options, Platform& platform) {
  if (options.command == Command::List || NeedsPane(options.area)) return nullptr;
  workbench::Sieve sieve = SieveOf(options, platform);
  return sieve.Usable() ? std::make_shared<const workbench::Sieve>(std::move(sieve)) : nullptr;
}

/// Tells of saves that were cut short, or ends them as the options say: then the files are others than were opened.
bool SettleHalfSaves(const Options& options, const workbench::Workbench& host) {
  std::vector<std::string> paths;
  for (const auto& project : host.Projects()) {
    for (const auto& component : project->Components()) paths.push_back(component->Path());
  }
  const auto saves = workbench::FindHalfSaves(paths);
  for (const workbench::SaveJournal& save : saves) {
    if (options.recover) {
      save.Recover(*options.recover);
    } else {
      TellWarning(save.Words() +
                  "; --recover finish saves the rest, back undoes it, keep leaves the files as they are");
    }
  }
  return options.recover && !saves.empty();
}

}  // namespace

Session::Session(const Options& options) : platform_(options.codepage, options.language) {
  workbench::OpenChoice choice{
      .sieve = SieveFor(options, platform_), .wanted = {}, .pageOf = {}, .byPath = options.sortByPath};
  bool anyWanted = false;
  if (!options.globs.Empty()) {
    choice.wanted = [&](const std::string& path) {
      const bool wanted = options.globs.Wants(path);
      anyWanted = anyWanted || wanted;
      return wanted;
    };
  }
  group_ = workbench::OpenFiles(options.files, platform_.AnsiCodePage(), choice);
  if (SettleHalfSaves(options, Host())) group_ = workbench::OpenFiles(options.files, platform_.AnsiCodePage(), choice);
  if (choice.wanted && !anyWanted) TellWarning("--include and --exclude leave no component");
  for (const std::string& warning : group_.warnings) TellWarning(warning);
  Globals::gobjVBE = std::shared_ptr<vbide::VBE>(std::shared_ptr<void>(), group_.workbench.get());
}

void Session::Apply(const Options& options) {
  for (const std::string& name : options.unread) TellWarning(name + " plays no part here");
  GlobalSetting& setting = *Globals::gobjSetting;
  setting.mstrSearchStr = FromUtf8(options.text);
  setting.mstrReplaceStr = FromUtf8(options.replacement);
  setting.menumArea = options.area;
  setting.menumMode = options.mode;
  setting.mblnMatchCase = options.matchCase;
  setting.mblnWholeWord = options.wholeWord;
  setting.mblnRegSingleLine = options.singleLine;
  setting.menumIgnoreComment = options.comments;
  ActivateProject(options);
  ActivateModule(options);
}

void Session::ActivateProject(const Options& options) {
  if (options.project.empty()) return;
  const auto found = ProjectsNamed(Host().Projects(), FromUtf8(options.project));
  if (found.size() == 1) return Host().SetActiveProject(found.front());
  Complain(options.area != gsAllProjects, found.empty() ? "there is no project named '" + options.project + "'"
                                                        : "several projects are named '" + options.project + "'");
}

std::vector<std::shared_ptr<Component>> Session::ModulesNamed(const Options& options) {
  const std::u16string name = FromUtf8(options.module);
  const auto projects =
      options.project.empty() ? Host().Projects() : ProjectsNamed(Host().Projects(), FromUtf8(options.project));
  std::vector<std::shared_ptr<Component>> found;
  for (const auto& project : projects) {
    for (const auto& component : project->Components()) {
      if (component->TheModule() && (name.empty() || EqualsNoCaseAscii(component->Name(), name))) {
        found.push_back(component);
      }
    }
  }
  return found;
}

void Session::ActivateModule(const Options& options) {
  const bool needed = NeedsPane(options.area);
  if (!needed && options.module.empty()) return;
  const auto found = ModulesNamed(options);
  if (found.size() == 1) {
    const auto pane = found.front()->TheModule()->CodePane();
    if (options.at) Deref(pane).SetSelection(PlaceIn(*found.front(), options));
    return Host().SetActivePane(pane);
  }
  if (options.module.empty()) {
    Fail(found.empty() ? "there is no module to search" : "there are several modules; name one with --module");
  }
  Complain(needed, found.empty() ? "there is no module named '" + options.module + "'"
                                 : "several modules are named '" + options.module + "'; name the project too");
}

void Session::CheckOutput(const Options& options) {
  const std::string& path = options.output;
  std::error_code failed;
  if (path.empty() || !std::filesystem::exists(FilePath(path), failed)) return;
  const auto isOutput = [&](const std::string& file) {
    return !file.empty() && std::filesystem::equivalent(FilePath(path), FilePath(file), failed) && !failed;
  };
  bool clash = std::ranges::any_of(options.files, isOutput);
  for (const auto& project : Host().Projects()) {
    clash = clash || isOutput(project->Path());
    for (const auto& component : project->Components()) clash = clash || isOutput(component->Path());
  }
  if (clash) Fail(path + ": is one of the open files and is not overwritten");
}

}  // namespace quorvane::cli
