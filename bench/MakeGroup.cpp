// Makes a large group of Visual Basic 6 projects to measure with, and the default stylesheet as a file beside it.
//
// Each module is planned as a list of lines first: declarations, procedures with nested blocks, comments. The lines
// that are plain statements are slots, each built around one variable. The texts that are to be counted are then put
// into slots drawn at random, as that variable, so that each occurs exactly as often as promised and once in a line.
// The same seed gives the same bytes.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "OneModule.h"
#include "addin/core/DefaultStylesheet.h"
#include "base/Text.h"

namespace quorvane::bench {
namespace {

namespace fs = std::filesystem;

class Random {
 public:
  explicit Random(std::uint64_t seed) : mullState(seed) {}

  /// From 0 to `limit` - 1.
  std::size_t Below(std::size_t limit) {
    mullState += 0x9E3779B97F4A7C15u;
    std::uint64_t z = mullState;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
    return static_cast<std::size_t>((z ^ (z >> 31)) >> 16) % limit;
  }
  std::size_t Between(std::size_t low, std::size_t high) { return low + Below(high - low + 1); }
  bool Chance(std::size_t percent) { return Below(100) < percent; }
  template <class List>
  const auto& Pick(const List& list) {
    return list[Below(std::size(list))];
  }

 private:
  std::uint64_t mullState;
};

/// A text that is to occur a known number of times, in any case, in the whole group.
struct CountedText {
  std::string name;
  std::string text;
  std::size_t count = 0;
};

constexpr std::array kNouns = {"Order",   "Price", "Store",  "Ticket", "Batch", "Route",  "Client", "Stock", "Report",
                               "Receipt", "Tax",   "Branch", "Seller", "Shift", "Parcel", "Crate",  "Form",  "Sheet"};
constexpr std::array kVerbs = {"Read", "Write", "Load", "Check", "Update", "Print", "Move", "Count", "Close", "Show"};
constexpr std::array kPrefixes = {"lng", "str", "cur", "int", "obj", "m_", "g"};
constexpr std::array kTypes = {"Long", "String", "Currency", "Integer", "Object", "Variant"};

// $v is the variable of the line, $o another, $n and $V words, $d a number.
constexpr std::array kStatements = {
    "$v = $o + $d",
    "$o = $v * $d",
    "If $v > $d Then $o = 0",
    "Call $V$n($v, $o)",
    "Debug.Print \"$n: \" & $v",
    "' the $n of $v comes from the $n",
    "strText = strText & Format$($v, \"0.00\") & vbCrLf",
    "MsgBox \"The $n of $v isn't \"\"$d\"\".\", vbExclamation",
    "Set $o = $v.Items($d)",
    "$V$n $v: $o = $d",
    "$o = Left$($v, InStr(strText, \"'\") - 1) ' up to the quote",
    "ReDim Preserve $v($d)",
};
constexpr std::array kComments = {"' $V the $n before the $n.",
                                  "' Here the $n is still without a $n;",
                                  "Rem $V the $n first",
                                  "'",
                                  "' Gr\xF6\xDF"
                                  "e des $n in \x80",
                                  "' $n: caf\xE9, no $n"};
constexpr std::array kDeclarations = {"Private $v As Long", "Public $v As String          ' of the $n",
                                      "Private Const $v = $d", "Dim $v() As $n",
                                      "Private Declare Function $V$n Lib \"shop32\" (ByVal $v As Long) As Long"};
constexpr std::array<std::array<const char*, 2>, 5> kBlocks = {{{"If $v = $d Then", "End If"},
                                                                {"For $v = 0 To $d", "Next $v"},
                                                                {"Do While $v < $d", "Loop"},
                                                                {"With $v.$n", "End With"},
                                                                {"For Each $v In $o", "Next"}}};

struct PlannedLine {
  std::string text;
  std::size_t indent = 0;
  const char* statement = nullptr;  ///< a slot when set; `text` is then empty
};

/// Plans the lines of one module.
class ModulePlan {
 public:
  enum class Kind { Standard, Class, Form };

  ModulePlan(Random& random, Kind kind, std::string name, std::size_t lines)
      : mobjRandom(random), meKind(kind), mstrName(std::move(name)) {
    Header();
    Declarations();
    while (mvecLines.size() < lines) Procedure(lines - mvecLines.size());
  }

  /// The indices of the lines that can hold a counted text.
  std::vector<std::size_t> Slots() const {
    std::vector<std::size_t> slots;
    for (std::size_t i = 0; i < mvecLines.size(); ++i) {
      if (mvecLines[i].statement) slots.push_back(i);
    }
    return slots;
  }

  /// The bytes of the file; `variables[i]`, where set, is the variable of line i.
  std::string Bytes(const std::vector<const std::string*>& variables) {
    std::string bytes;
    bytes.reserve(mvecLines.size() * 48);
    for (std::size_t i = 0; i < mvecLines.size(); ++i) {
      const PlannedLine& line = mvecLines[i];
      bytes.append(line.indent * 4, ' ');
      if (line.statement) {
        bytes += Filled(line.statement, variables[i] ? *variables[i] : Variable());
      } else {
        bytes += line.text;
      }
      bytes += "\r\n";
    }
    return bytes;
  }

  std::size_t LineCount() const { return mvecLines.size(); }

 private:
  std::string Variable() {
    return std::string(mobjRandom.Pick(kPrefixes)) + mobjRandom.Pick(kNouns) + mobjRandom.Pick(kNouns);
  }

  /// `form` with its marks filled in.
  std::string Filled(std::string_view form, const std::string& variable) {
    std::string text;
    for (std::size_t i = 0; i < form.size(); ++i) {
      if (form[i] != '$' || i + 1 == form.size()) {
        text += form[i];
        continue;
      }
      switch (form[i + 1]) {
        case 'v':
          text += variable;
          break;
        case 'o':
          text += Variable();
          break;
        case 'n':
          text += mobjRandom.Pick(kNouns);
          break;
        case 'V':
          text += mobjRandom.Pick(kVerbs);
          break;
        case 'd':
          text += std::to_string(mobjRandom.Below(1000));
          break;
        default:
          text += '$';
          continue;
      }
      ++i;
    }
    return text;
  }

  void Add(std::string text, std::size_t indent = 0) { mvecLines.push_back({std::move(text), indent, nullptr}); }
  void AddFilled(const char* form, std::size_t indent = 0) { Add(Filled(form, Variable()), indent); }

  void Header() {
    if (meKind == Kind::Class) {
      for (const char* line : {"VERSION 1.0 CLASS", "BEGIN", "  MultiUse = -1  'True", "END"}) Add(line);
    } else if (meKind == Kind::Form) {
      for (const std::string& line :
           {std::string("VERSION 5.00"), "Begin VB.Form " + mstrName + " ",
            "   Caption         =   \"" + mstrName + "\"", std::string("   ClientHeight    =   3195")}) {
        Add(line);
      }
      for (int control = 0; control < 3; ++control) {
        Add("   Begin VB.CommandButton Command" + std::to_string(control) + " ");
        Add("      Caption         =   \"" + Filled("$V the $n", {}) + "\"");
        Add("      TabIndex        =   " + std::to_string(control));
        Add("   End");
      }
      Add("End");
    }
    Add("Attribute VB_Name = \"" + mstrName + "\"");
    if (meKind != Kind::Standard) {
      Add("Attribute VB_GlobalNameSpace = False");
      Add("Attribute VB_Creatable = True");
    }
  }

  void Declarations() {
    Add("Option Explicit");
    Add("");
    AddFilled("' The $n of the $n: what a $n needs.");
    const std::size_t count = mobjRandom.Between(3, 14);
    for (std::size_t i = 0; i < count; ++i) AddFilled(mobjRandom.Pick(kDeclarations));
  }

  /// A procedure of at most `room` lines, its comment and the blank line above it included; when the room is too
  /// small for one, the module ends with comments.
  void Procedure(std::size_t room) {
    if (room < 6) {
      for (; room > 0; --room) AddFilled("' end of the $n");
      return;
    }
    std::size_t length = std::min(mobjRandom.Between(8, 60), room);
    if (room - length < 6) length = room;
    const std::size_t end = mvecLines.size() + length;
    Add("");
    if (mobjRandom.Chance(60)) AddFilled(mobjRandom.Pick(kComments));
    const std::string name = Filled("$V$n", {}) + std::to_string(mvecLines.size());
    const std::size_t kind = mobjRandom.Below(meKind == Kind::Class ? 4 : 3);
    const char* const word = kind == 0 ? "Function" : kind == 3 ? "Property Get" : "Sub";
    const std::string result = kind == 1 || kind == 2 ? "" : std::string(" As ") + mobjRandom.Pick(kTypes);
    Add(std::string(kind == 1 ? "Private " : "Public ") + word + " " + name +
        (kind == 1 ? "()" : Filled("(ByVal $o As Long)", {})) + result);
    if (meKind == Kind::Class && mobjRandom.Chance(20)) {
      Add("Attribute " + name + ".VB_Description = \"" + Filled("$V the $n", {}) + "\"");
    }
    Body(end - 1 - mvecLines.size(), 1);
    Add(kind == 0 ? "End Function" : kind == 3 ? "End Property" : "End Sub");
  }

  void Body(std::size_t count, std::size_t depth) {
    while (count > 0) {
      if (count >= 5 && depth < 4 && mobjRandom.Chance(18)) {
        const std::size_t length = mobjRandom.Between(4, std::min<std::size_t>(count, 14));
        const auto& block = mobjRandom.Pick(kBlocks);
        const std::string variable = Variable();
        Add(Filled(block[0], variable), depth);
        Body(length - 2, depth + 1);
        Add(Filled(block[1], variable), depth);
        count -= length;
        continue;
      }
      const std::size_t kind = mobjRandom.Below(100);
      if (kind < 8) {
        Add("");
      } else if (kind < 16) {
        AddFilled(mobjRandom.Pick(kComments), depth);
      } else if (kind < 19 && count >= 2) {
        AddFilled("$o = $V$n($o, _", depth);
        AddFilled("$o, $d)", depth + 1);
        --count;
      } else {
        mvecLines.push_back({{}, depth, mobjRandom.Pick(kStatements)});
      }
      --count;
    }
  }

  Random& mobjRandom;
  Kind meKind;
  std::string mstrName;
  std::vector<PlannedLine> mvecLines;
};

void WriteFile(const fs::path& path, std::string_view bytes) {
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (!file) throw std::runtime_error("cannot write " + path.string());
}

class GroupMaker {
 public:
  GroupMaker(fs::path folder, std::size_t modules, std::size_t lines, std::uint64_t seed)
      : mobjFolder(std::move(folder)), mlngModules(modules), mlngLines(lines), mobjRandom(seed) {
    const auto scaled = [lines](std::size_t count) { return std::max<std::size_t>(1, count * lines / 1'000'000); };
    mvecTexts = {{"rare", "fixmeQuarterEnd", 12},
                 {"some", "rsAuditTrail", scaled(1'000)},
                 {"many", "lngInvoiceRow", scaled(35'000)},
                 {"most", "strCustomerKey", scaled(100'000)}};
    mvecOpen.resize(mvecTexts.size());
  }

  void Make() {
    fs::create_directories(mobjFolder);
    const std::size_t projects = std::min<std::size_t>(20, mlngModules);
    std::string group = "VBGROUP 5.0\r\n";
    std::size_t module = 0;
    for (std::size_t p = 0; p < projects; ++p) {
      const std::string name = "Branch" + std::string(p < 9 ? "0" : "") + std::to_string(p + 1);
      group += std::string(p == 0 ? "StartupProject=" : "Project=") + name + "\\" + name + ".vbp\r\n";
      fs::create_directories(mobjFolder / name);
      std::string project = "Type=Exe\r\n";
      for (const std::size_t end = mlngModules * (p + 1) / projects; module < end; ++module) {
        project += Module(mobjFolder / name, module);
      }
      WriteFile(mobjFolder / name / (name + ".vbp"),
                project + "Startup=\"(None)\"\r\nName=\"" + name + "\"\r\nMajorVer=1\r\n");
    }
    WriteFile(mobjFolder / "Bench.vbg", group);
    WriteFile(mobjFolder / "default.xsl", ToUtf8(DefaultStylesheet()));
    for (std::size_t t = 0; t < mvecTexts.size(); ++t) {
      if (mvecOpen[t] > 0) throw std::runtime_error("too few lines to hold " + mvecTexts[t].text);
    }
  }

  void PrintJson() const {
    std::printf("{\"group\": \"%s\", \"modules\": %zu, \"lines\": %zu, \"bytes\": %zu",
                (mobjFolder / "Bench.vbg").string().c_str(), mlngModules, mlngMade, mlngBytes);
    for (const CountedText& text : mvecTexts) {
      std::printf(", \"%s\": {\"text\": \"%s\", \"count\": %zu}", text.name.c_str(), text.text.c_str(), text.count);
    }
    std::printf("}\n");
  }

 private:
  /// Writes module number `index`; gives its line of the project file.
  std::string Module(const fs::path& folder, std::size_t index) {
    using Kind = ModulePlan::Kind;
    const std::size_t draw = mobjRandom.Below(100);
    const Kind kind = draw < 55 ? Kind::Standard : draw < 85 ? Kind::Class : Kind::Form;
    const std::string name = std::string(kind == Kind::Standard ? "mod"
                                         : kind == Kind::Class  ? "C"
                                                                : "frm") +
                             mobjRandom.Pick(kNouns) + std::to_string(index + 1);
    ModulePlan plan(mobjRandom, kind, name, Length(index));
    const std::string bytes = plan.Bytes(Draw(plan, index));
    const std::string file = name + (kind == Kind::Standard ? ".bas" : kind == Kind::Class ? ".cls" : ".frm");
    WriteFile(folder / file, bytes);
    mlngMade += plan.LineCount();
    mlngBytes += bytes.size();
    if (kind == Kind::Form) return "Form=" + file + "\r\n";
    return (kind == Kind::Standard ? "Module=" : "Class=") + name + "; " + file + "\r\n";
  }

  /// What a pair of modules has in lines is shared out unevenly between them.
  std::size_t Length(std::size_t index) {
    const std::size_t even = mlngLines * (index + 1) / mlngModules - mlngLines * index / mlngModules;
    if (index % 2 == 0) mlngShift = index + 1 < mlngModules ? mobjRandom.Below(even / 2 + 1) : 0;
    return index % 2 == 0 ? even + mlngShift : even - mlngShift;
  }

  /// Shares each text's count out evenly over the modules; what a module has no slot for goes to the next one.
  std::vector<const std::string*> Draw(const ModulePlan& plan, std::size_t index) {
    std::vector<const std::string*> variables(plan.LineCount(), nullptr);
    std::vector<std::size_t> slots = plan.Slots();
    for (std::size_t t = 0; t < mvecTexts.size(); ++t) {
      const std::size_t count = mvecTexts[t].count;
      mvecOpen[t] += count * (index + 1) / mlngModules - count * index / mlngModules;
      for (; mvecOpen[t] > 0 && !slots.empty(); --mvecOpen[t]) {
        std::swap(slots[mobjRandom.Below(slots.size())], slots.back());
        variables[slots.back()] = &mvecTexts[t].text;
        slots.pop_back();
      }
    }
    return variables;
  }

  fs::path mobjFolder;
  std::size_t mlngModules;
  std::size_t mlngLines;
  Random mobjRandom;
  std::vector<CountedText> mvecTexts;
  std::vector<std::size_t> mvecOpen;  ///< per text: due by now and not yet placed
  std::size_t mlngShift = 0;
  std::size_t mlngMade = 0;
  std::size_t mlngBytes = 0;
};

void MakeOneModule(const fs::path& folder, std::int64_t lines) {
  fs::create_directories(folder);
  const fs::path path = folder / ("One" + std::to_string(lines) + ".bas");
  const std::string bytes = "Attribute VB_Name = \"One\"\r\n" + OneModuleText(lines) + "\r\n";
  WriteFile(path, bytes);
  std::printf("{\"module\": \"%s\", \"lines\": %lld, \"bytes\": %zu, \"text\": \"%s\", \"count\": %lld}\n",
              path.string().c_str(), static_cast<long long>(lines), bytes.size(), kNeedle,
              static_cast<long long>(lines));
}

}  // namespace
}  // namespace quorvane::bench

int main(int argc, char** argv) {
  std::string folder;
  std::size_t modules = 2'000;
  std::size_t lines = 1'000'000;
  std::uint64_t seed = 1;
  std::int64_t one = 0;
  CLI::App app("Makes a large group of Visual Basic 6 projects and tells, as JSON, what it holds how often.");
  app.add_option("DIR", folder, "The folder to write to")->required();
  app.add_option("--modules", modules)->check(CLI::Range(std::size_t{1}, std::size_t{1'000'000}));
  app.add_option("--lines", lines, "Of all module files together");
  app.add_option("--seed", seed);
  app.add_option("--one-module", one, "Only one module, of this many lines, each with one needle");
  CLI11_PARSE(app, argc, argv);
  try {
    if (one > 0) {
      quorvane::bench::MakeOneModule(folder, one);
      return 0;
    }
    if (lines / modules < 60) throw std::runtime_error("a module needs at least 60 lines");
    quorvane::bench::GroupMaker maker(folder, modules, lines, seed);
    maker.Make();
    maker.PrintJson();
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "MakeGroup: %s\n", error.what());
    return 2;
  }
}
