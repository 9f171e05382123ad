#include "cli/Options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <iostream>
#include <map>

#include "cli/Diagnostics.h"
#include "cli/ExitStatus.h"

namespace quorvane::cli {

namespace {

/// The numbers of "1,2,3,4": whole, at least 1, at most `most` of them; nothing when it is something else.
std::optional<std::vector<std::int32_t>> ParseNumbers(const std::string& text, std::size_t least, std::size_t most) {
  std::vector<std::int32_t> numbers;
  const char* at = text.data();
  const char* const end = at + text.size();
  for (;;) {
    std::int32_t number = 0;
    const auto [next, error] = std::from_chars(at, end, number);
    if (error != std::errc() || number < 1) return std::nullopt;
    numbers.push_back(number);
    if (next == end) break;
    if (*next != ',') return std::nullopt;
    at = next + 1;
  }
  if (numbers.size() < least || numbers.size() > most) return std::nullopt;
  return numbers;
}

std::string WithoutLineBreaks(std::string text) {
  std::erase_if(text, [](char c) { return c == '\r' || c == '\n'; });
  return text;
}

/// The parser with the places that its values go to.
class Parser {
 public:
  Parser();
  Options Parse(int argc, const char* const* argv);
  CLI::App& App() { return app_; }

 private:
  void AddFind();
  void AddAmount();
  void AddReplace();
  void AddList();
  void AddCondition(CLI::App& command);
  void AddPlace(CLI::App& command);
  void AddCommon(CLI::App& command);
  void Check(const CLI::App& command);
  void CheckPlace(const CLI::App& command);
  void CheckAmount(const CLI::App& command);
  void NoteUnread(const CLI::App& command);

  CLI::App app_{"Find and replace in Visual Basic 6 projects.", "quorvane"};
  Options options_;
  CLI::App* find_ = nullptr;
  CLI::App* replace_ = nullptr;
  CLI::App* list_ = nullptr;
  std::string at_;
  std::string select_;
  workbench::Recovery recovery_ = workbench::Recovery::Keep;
  bool names_ = false;
  std::int32_t context_ = 0;
};

template <class T>
CLI::Option* AddChoice(CLI::App& command, const std::string& name, T& target, std::map<std::string, T> choices,
                       const std::string& description) {
  std::string names;
  for (const auto& choice : choices) names += (names.empty() ? "" : "|") + choice.first;
  // The transformer's own description of its map would show the numbers; the type name shows the words.
  auto transformer = CLI::CheckedTransformer(std::move(choices), CLI::ignore_case).description("");
  return command.add_option(name, target, description)->transform(transformer)->type_name(names);
}

Parser::Parser() {
  app_.set_version_flag("--version", std::string("quorvane ") + QUORVANE_VERSION);
  app_.require_subcommand(1);
  app_.allow_windows_style_options(false);  // a slash begins a text or a path there as well
  app_.get_formatter()->column_width(36);
  AddFind();
  AddReplace();
  AddList();
  app_.footer(
      "Exit status: 0 something found, replaced or listed; 1 nothing; 2 an error; 130 cancelled.\n"
      "FILE: a project group (.vbg), a project (.vbp), single module files or a folder with any of them.\n"
      "'quorvane COMMAND --help' tells of a command's options.");
}

void Parser::AddFind() {
  find_ = app_.add_subcommand("find", "Find all matches of TEXT");
  find_->add_option("TEXT", options_.text, "What to look for")->required();
  AddCommon(*find_);
  AddCondition(*find_);
  AddPlace(*find_);
  AddChoice<Format>(*find_, "--format", options_.format,
                    {{"lines", Format::Lines},
                     {"vimgrep", Format::Vimgrep},
                     {"json", Format::Json},
                     {"xml", Format::Xml},
                     {"count", Format::Count}},
                    "How results are told (default: lines)");
  find_->add_flag("--unique", options_.unique, "Count the matches of a file that several projects list once");
  find_->add_option("--xsl", options_.xsl, "The stylesheet that words the lines")->type_name("FILE");
  find_->add_option("-o,--output", options_.output, "Write the results to FILE")->type_name("FILE");
  AddChoice<Color>(*find_, "--color", options_.color,
                   {{"auto", Color::Auto}, {"always", Color::Always}, {"never", Color::Never}},
                   "Show the match in bold (default: auto, on a terminal)");
  AddAmount();
  find_->footer(find_->get_footer() + "\n-l -q -w -A -B -C mean what they mean to grep; -m -c -s -a and -o do not.");
}

/// What grep has too, under the same names.
void Parser::AddAmount() {
  const auto addNumber = [this](const char* name, auto& target, const char* description) {
    find_->add_option(name, target, description)
        ->type_name("NUM")
        ->check(CLI::Validator(CLI::NonNegativeNumber).description(""));
  };
  find_->add_flag("-l,--files-with-matches", names_, "Print the path of each file that has a match, and nothing else")
      ->excludes("--format");
  find_->add_flag("-q,--quiet", options_.quiet, "Print nothing and stop at the first match: the exit status tells");
  addNumber("--max-count", options_.maxCount, "Tell the matches of NUM lines of each module at most (-m is the mode)");
  addNumber("-A,--after-context", options_.after, "Show NUM lines after each match");
  addNumber("-B,--before-context", options_.before, "Show NUM lines before each match");
  addNumber("-C,--context", context_, "Show NUM lines before and after each match");
}

void Parser::AddReplace() {
  replace_ = app_.add_subcommand("replace", "Replace all matches of the regular expression PATTERN");
  replace_->add_option("PATTERN", options_.text, "What to look for")->required();
  replace_
      ->add_option("REPLACEMENT", options_.replacement,
                   "May hold $1 to $99, $&, $`, $' and $$; without -s also \\t, \\r, \\n and \\\\")
      ->required();
  AddCommon(*replace_);
  AddCondition(*replace_);
  AddPlace(*replace_);
  replace_->add_option("-o,--output", options_.output, "Write the diff to FILE")->type_name("FILE");
  replace_->add_flag("--write", options_.write, "Save the files; without it a diff is shown and nothing is written");
  replace_->add_flag("--write-outside", options_.writeOutside,
                     "Save files too that a project lists by an absolute path outside the projects' folders");
}

void Parser::AddList() {
  list_ = app_.add_subcommand("list", "List the components as JSON");
  AddCommon(*list_);
  list_->add_flag("--procedures", options_.procedures, "List the procedures of each component too");
  list_->add_option("-o,--output", options_.output, "Write the list to FILE")->type_name("FILE");
}

void Parser::AddCommon(CLI::App& command) {
  const bool edits = &command == replace_;
  command
      .add_option(
          "FILE", options_.files,
          std::string("Groups, projects, module files or folders") + (edits ? "" : " (default: the working directory)"))
      ->required(edits);
  const auto addGlobs = [&command](const char* name, std::vector<std::string>& globs, const char* description) {
    command.add_option(name, globs, description)->type_name("GLOB")->allow_extra_args(false);
  };
  addGlobs("--include", options_.globs.include, "Only components whose file GLOB matches; may be given again");
  addGlobs("--exclude", options_.globs.exclude, "No component whose file GLOB matches; may be given again");
  if (!edits) {
    AddChoice<bool>(command, "--sort", options_.sortByPath, {{"none", false}, {"path", true}},
                    "Order of the components (default: none, as the projects list them)");
  }
  AddChoice<workbench::Recovery>(command, "--recover", recovery_,
                                 {{"finish", workbench::Recovery::Finish},
                                  {"back", workbench::Recovery::GoBack},
                                  {"keep", workbench::Recovery::Keep}},
                                 "Settle a save of several files that was cut short, before all else");
  command.add_option("--codepage", options_.codepage, "Code page of the files, such as 1252, 936 or UTF-8")
      ->type_name("NAME");
  AddChoice<std::int32_t>(command, "--language", options_.language, {{"zh", 0}, {"en", 1}},
                          "Language of the messages (default: en)");
}

void Parser::AddCondition(CLI::App& command) {
  AddChoice<gsMode>(
      command, "-m,--mode", options_.mode, {{"common", gsCommon}, {"pattern", gsPattern}, {"regexp", gsRegular}},
      &command == replace_ ? "How PATTERN is read (only regexp can replace)" : "How TEXT is read (default: common)");
  command.add_flag("-c,--match-case", options_.matchCase, "Upper and lower case differ");
  command.add_flag("-w,--whole-word", options_.wholeWord, "Whole words only (common and pattern)");
  command.add_flag("-s,--single-line", options_.singleLine,
                   "^ and $ hold at the ends of the area alone; replace goes line by line");
  AddChoice<gsCommentStat>(command, "--comments", options_.comments,
                           {{"include", gsIncludeComment}, {"exclude", gsExcludeComment}, {"only", gsCommentOnly}},
                           "Which matches stay (default: include)");
}

void Parser::AddPlace(CLI::App& command) {
  AddChoice<gsArea>(command, "-a,--area", options_.area,
                    {{"group", gsAllProjects},
                     {"project", gsCurProject},
                     {"module", gsCurModule},
                     {"procedure", gsCurProcedure},
                     {"selection", gsSelection}},
                    "Where to look (default: group)");
  command.add_option("--project", options_.project, "The active project")->type_name("NAME");
  command.add_option("--module", options_.module, "The module of the active code pane")->type_name("NAME");
  command.add_option("--at", at_, "The caret, for the area procedure")->type_name("Y[,X]");
  command.add_option("--select", select_, "The selection, the end exclusive")->type_name("Y1,X1,Y2,X2");
  command.add_flag("--file-lines", options_.fileLines, "Lines of --at and --select are lines of the file");
  command.footer(
      "Y is a line and X a screen column, both from 1. Lines are those of the module, as the formats lines and json "
      "tell\n"
      "them: without the file's header and Attribute lines. With --file-lines they are those of the file, as the "
      "format\n"
      "vimgrep, a diff and an editor tell them.");
}

void Parser::CheckPlace(const CLI::App& command) {
  std::optional<vbide::Selection> caret, selection;
  if (command.count("--at") > 0) {
    const auto place = ParseNumbers(at_, 1, 2);
    if (!place) throw CLI::ValidationError("--at", "'" + at_ + "' is not Y or Y,X");
    const std::int32_t column = place->size() == 2 ? (*place)[1] : 1;
    caret = vbide::Selection{(*place)[0], column, (*place)[0], column};
  }
  if (command.count("--select") > 0) {
    const auto range = ParseNumbers(select_, 4, 4);
    if (!range) throw CLI::ValidationError("--select", "'" + select_ + "' is not Y1,X1,Y2,X2");
    selection = vbide::Selection{(*range)[0], (*range)[1], (*range)[2], (*range)[3]};
    if (selection->EndLine < selection->StartLine ||
        (selection->EndLine == selection->StartLine && selection->EndColumn < selection->StartColumn)) {
      throw CLI::ValidationError("--select", "'" + select_ + "' ends before it begins");
    }
  }
  const auto need = [](const auto& place, const char* message) {
    if (!place) throw CLI::ValidationError("--area", message);
    return place;
  };
  if (options_.area == gsCurProcedure) options_.at = need(caret, "the area procedure needs --at");
  if (options_.area == gsSelection) options_.at = need(selection, "the area selection needs --select");
}

void Parser::NoteUnread(const CLI::App& command) {
  const auto note = [&](const char* name, bool read) {
    if (!read && command.count(name) > 0) options_.unread.emplace_back(name);
  };
  const bool find = options_.command == Command::Find;
  note("--whole-word", find && options_.mode != gsRegular);
  note("--single-line", options_.mode == gsRegular);
  note("--comments", find);
  note("--at", options_.area == gsCurProcedure);
  note("--select", options_.area == gsSelection);
  note("--file-lines", options_.at.has_value());
  if (find) {
    note("--xsl", options_.format == Format::Lines);
    for (const char* name : {"--color", "--after-context", "--before-context", "--context"})
      note(name, options_.format == Format::Lines);
    note("--unique", options_.format == Format::Count || options_.format == Format::Vimgrep);
  }
}

void Parser::CheckAmount(const CLI::App& command) {
  if (names_) options_.format = Format::Names;
  if (command.count("--before-context") == 0) options_.before = context_;
  if (command.count("--after-context") == 0) options_.after = context_;
}

void Parser::Check(const CLI::App& command) {
  if (options_.files.empty()) options_.files.emplace_back(".");
  if (command.count("--recover") > 0) options_.recover = recovery_;
  if (options_.command == Command::List) return;
  options_.text = WithoutLineBreaks(options_.text);
  options_.replacement = WithoutLineBreaks(options_.replacement);
  if (options_.text.empty()) {
    throw CLI::ValidationError(options_.command == Command::Find ? "TEXT" : "PATTERN", "must not be empty");
  }
  if (options_.command == Command::Replace && command.count("--mode") == 0) options_.mode = gsRegular;
  CheckPlace(command);
  if (options_.command == Command::Find) CheckAmount(command);
  NoteUnread(command);
}

Options Parser::Parse(int argc, const char* const* argv) {
  app_.parse(argc, argv);
  const CLI::App* command = app_.get_subcommands().front();
  options_.command = command == find_ ? Command::Find : command == replace_ ? Command::Replace : Command::List;
  Check(*command);
  return options_;
}

}  // namespace

std::optional<Options> ParseOptions(int argc, const char* const* argv, int& status) {
  Parser parser;
  try {
    return parser.Parse(argc, argv);
  } catch (const CLI::Success& request) {
    status = parser.App().exit(request);
  } catch (const CLI::ParseError& error) {
    TellError(error.what());
    status = kStatusError;
  }
  return std::nullopt;
}

}  // namespace quorvane::cli
