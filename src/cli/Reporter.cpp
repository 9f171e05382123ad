#include "cli/Reporter.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "addin/results/ResultLineParts.h"
#include "addin/search/PositionInfo.h"
#include "addin/search/ResultCollection.h"
#include "base/Error.h"
#include "base/Text.h"
#include "cli/Json.h"
#include "cli/Output.h"
#include "cli/Places.h"
#include "cli/ResultPage.h"
#include "platform/Platform.h"
#include "platform/XmlDocument.h"

namespace quorvane::cli {

namespace {

constexpr std::string_view kBold = "\033[1m";
constexpr std::string_view kPrefixColor = "\033[36m";
constexpr std::string_view kPlain = "\033[0m";

/// What an element of the result document tells, in its order.
struct Attribute {
  std::string_view name;
  bool isNumber;
};
constexpr std::array<Attribute, 17> kAttributes{{{"ID", true},
                                                 {"Y1", true},
                                                 {"Y2", true},
                                                 {"X1", true},
                                                 {"X2", true},
                                                 {"ScreenX1", true},
                                                 {"ScreenX2", true},
                                                 {"StartPos", true},
                                                 {"EndPos", true},
                                                 {"MatchStr", false},
                                                 {"ComponentName", false},
                                                 {"ProjectName", false},
                                                 {"RelativeStartPos", true},
                                                 {"RelativeEndPos", true},
                                                 {"ProcName", false},
                                                 {"ProcType", false},
                                                 {"Line", false}}};

/// A whole number as an attribute holds it.
std::int32_t NumberOf(const XmlElement& item, std::string_view name) {
  return std::stoi(ToUtf8(item.GetAttribute(name)));
}

class LineReporter final : public Reporter {
 public:
  LineReporter(bool color, ResultPage& page, Output& output) : color_(color), page_(page), output_(output) {
    page_.OnLine = [this](const std::u16string& line, std::int32_t id) { Tell(line, id); };
  }

 private:
  void Tell(const std::u16string& line, std::int32_t id) {
    bytes_.clear();
    if (color_) {
      AppendColored(line, id);
    } else {
      AppendUtf8(line, bytes_);
    }
    bytes_ += '\n';
    output_.Write(bytes_);
  }

  void AppendColored(const std::u16string& line, std::int32_t id) {
    const auto item = page_.mobjFilter.Item(id);
    const auto parts =
        FindMatchInResultLine(line, item->GetAttribute("Line"), NumberOf(*item, "StartPos"), NumberOf(*item, "EndPos"));
    if (!parts) return AppendUtf8(line, bytes_);
    const auto piece = [this](std::string_view style, std::u16string_view text) {
      if (text.empty()) return;
      bytes_ += style;
      AppendUtf8(text, bytes_);
      if (!style.empty()) bytes_ += kPlain;
    };
    piece(kPrefixColor, parts->Prefix(line));
    piece({}, parts->BeforeMatch(line));
    piece(kBold, parts->Match(line));
    piece({}, parts->Rest(line));
  }

  const bool color_;
  ResultPage& page_;
  Output& output_;
  std::string bytes_;
};

class VimgrepReporter final : public Reporter {
 public:
  VimgrepReporter(ResultPage& page, Output& output) {
    page.OnMatch = [&page, &output](const PositionInfo& pi) {
      const auto item = page.mobjFilter.Item(pi.mlngID);
      const FilePlace place = PlaceOf(pi);
      output.Write(place.path + ':' + std::to_string(place.line) + ':' + ToUtf8(item->GetAttribute("X1")) + ':' +
                   ToUtf8(item->GetAttribute("Line")) + '\n');
    };
  }
};

class JsonReporter final : public Reporter {
 public:
  JsonReporter(ResultPage& page, Output& output) : output_(output) {
    page.OnMatch = [this, &page](const PositionInfo& pi) { Tell(*page.mobjFilter.Item(pi.mlngID), PlaceOf(pi)); };
  }

 private:
  void Tell(const XmlElement& item, const FilePlace& place) {
    json_.BeginObject();
    for (const Attribute& attribute : kAttributes) {
      json_.Key(attribute.name);
      const std::u16string value = item.GetAttribute(attribute.name);
      attribute.isNumber ? json_.Digits(value) : json_.Text(value);
    }
    json_.Key("Path").Utf8(place.path).Key("FileLine").Number(place.line).EndObject();
    output_.Write(json_.Take() + '\n');
  }

  Output& output_;
  Json json_;
};

class XmlReporter final : public Reporter {
 public:
  XmlReporter(ResultPage& page, Output& output) : page_(page), output_(output) {}

  void Finish() override {
    std::string xml = page_.Untold().empty() ? page_.mobjFilter.Document().Xml() : ToldElements();
    if (!xml.ends_with('\n')) xml += '\n';
    output_.Write(xml);
  }

 private:
  /// The document without the elements of matches that were not told, which are incomplete.
  std::string ToldElements() const {
    const auto document = ThePlatform().NewXmlDocument();
    const auto root = document->CreateElement("SearchResult");
    document->SetDocumentElement(*root);
    for (std::int32_t id = 1; id <= page_.Result()->Count(); ++id) {
      if (page_.Untold().contains(id)) continue;
      const auto element = document->CreateElement("MatchItem");
      for (const Attribute& attribute : kAttributes)
        element->SetAttribute(attribute.name, page_.mobjFilter.Item(id)->GetAttribute(attribute.name));
      root->AppendChild(*element);
    }
    return document->Xml();
  }

  ResultPage& page_;
  Output& output_;
};

class CountReporter final : public Reporter {
 public:
  CountReporter(ResultPage& page, Output& output) : page_(page), output_(output) {}

  void Finish() override { output_.Write(std::to_string(page_.CountOfTold()) + '\n'); }

 private:
  ResultPage& page_;
  Output& output_;
};

}  // namespace

std::unique_ptr<Reporter> NewReporter(const Options& options, ResultPage& page, Output& output) {
  switch (options.format) {
    case Format::Lines: {
      const bool color = options.color == Color::Always || (options.color == Color::Auto && output.IsTerminal());
      return std::make_unique<LineReporter>(color, page, output);
    }
    case Format::Vimgrep:
      return std::make_unique<VimgrepReporter>(page, output);
    case Format::Json:
      return std::make_unique<JsonReporter>(page, output);
    case Format::Xml:
      return std::make_unique<XmlReporter>(page, output);
    case Format::Count:
      return std::make_unique<CountReporter>(page, output);
  }
  RaiseError(ErrorNumber::Internal);
}

}  // namespace quorvane::cli
