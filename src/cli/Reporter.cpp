#include "cli/Reporter.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "addin/results/MatchField.h"
#include "addin/results/MatchReader.h"
#include "addin/results/ResultLineParts.h"
#include "addin/search/PositionInfo.h"
#include "addin/search/ResultCollection.h"
#include "base/Error.h"
#include "base/Text.h"
#include "cli/ContextLines.h"
#include "cli/Json.h"
#include "cli/Output.h"
#include "cli/Places.h"
#include "cli/ResultPage.h"
#include "native/files/FileAccess.h"
#include "native/xml/XmlRowWriter.h"
#include "native/xml/XmlText.h"

namespace quorvane::cli {

namespace {

constexpr std::string_view kBold = "\033[1m";
constexpr std::string_view kPrefixColor = ContextLines::kPrefixColor;
constexpr std::string_view kPlain = ContextLines::kPlain;

class LineReporter final : public Reporter {
 public:
  LineReporter(bool color, const Options& options, ResultPage& page, Output& output)
      : color_(color), page_(page), output_(output) {
    if (options.before > 0 || options.after > 0) context_.emplace(options.before, options.after, color);
    page_.OnLine = [this](const std::u16string& line, std::int32_t id) { Tell(line, id); };
  }

  void Finish() override {
    if (context_) output_.Write(context_->Rest());
  }
  void Cut() override { Finish(); }

 private:
  void Tell(const std::u16string& line, std::int32_t id) {
    bytes_.clear();
    if (context_) bytes_ = context_->Before(*page_.Result()->Item(id));
    if (color_) {
      AppendColored(line, id);
    } else {
      AppendUtf8(line, bytes_);
    }
    bytes_ += '\n';
    output_.Write(bytes_);
  }

  void AppendColored(const std::u16string& line, std::int32_t id) {
    const MatchItem item = page_.Filter().Item(id);
    const auto parts = FindMatchInResultLine(line, item.Text(MatchField::Line), item.Number(MatchField::StartPos),
                                             item.Number(MatchField::EndPos));
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
  std::optional<ContextLines> context_;
  std::string bytes_;
};

/// Of a file that several projects list, the matches in the first of them alone are told.
class TwinFilter {
 public:
  bool IsFirst(const PositionInfo& pi) {
    const vbide::VBComponent* component = pi.component().get();
    if (component != component_) {
      component_ = component;
      isFirst_ = firsts_.try_emplace(native::RealPath(PlaceOf(pi).path), component).first->second == component;
    }
    return isFirst_;
  }

 private:
  std::map<std::string, const vbide::VBComponent*> firsts_;  ///< by the file itself
  const vbide::VBComponent* component_ = nullptr;            ///< of the last match
  bool isFirst_ = false;
};

/// The 1-based column of a match as editors count it, in bytes of UTF-8.
std::size_t ByteColumn(std::u16string_view line, std::int32_t column) {
  std::string before;
  AppendUtf8(line.substr(0, static_cast<std::size_t>(column - 1)), before);
  return before.size() + 1;
}

class VimgrepReporter final : public Reporter {
 public:
  VimgrepReporter(ResultPage& page, Output& output) {
    page.OnMatch = [this, &output](const PositionInfo& pi) {
      if (!twins_.IsFirst(pi)) return;
      const FilePlace place = PlaceOf(pi);
      const auto& line = pi.line();
      native::ToXmlText(line, text_);
      bytes_ = place.path;
      bytes_.append(":").append(std::to_string(place.line)).append(":");
      bytes_.append(std::to_string(ByteColumn(line, pi.mlngX1))).append(":");
      output.Write(bytes_.append(text_).append("\n"));
    };
  }

 private:
  TwinFilter twins_;
  std::string bytes_;
  std::string text_;
};

class NameReporter final : public Reporter {
 public:
  NameReporter(ResultPage& page, Output& output) {
    page.OnMatch = [this, &output](const PositionInfo& pi) {
      if (pi.mobjCodeObject == last_ || !twins_.IsFirst(pi)) return;
      last_ = pi.mobjCodeObject;
      output.Write(PlaceOf(pi).path + '\n');
    };
  }

 private:
  TwinFilter twins_;
  std::shared_ptr<vbide::CodeModule> last_;
};

class QuietReporter final : public Reporter {
 public:
  explicit QuietReporter(ResultPage& page) {
    page.OnMatch = [&page](const PositionInfo&) { page.mobjTask.mblnCancel = true; };
  }
};

class JsonReporter final : public Reporter {
 public:
  JsonReporter(ResultPage& page, Output& output) : output_(output) {
    page.OnMatch = [this](const PositionInfo& pi) { Tell(pi, PlaceOf(pi)); };
  }

 private:
  void Tell(const PositionInfo& pi, const FilePlace& place) {
    MatchReader match(pi);
    json_.BeginObject();
    for (const MatchFieldInfo& field : MatchFields()) {
      json_.Key(field.Name);
      if (field.IsNumber()) {
        json_.Number(field.Number(match));
      } else {
        native::ToXmlText(field.Text(match), text_);  // as the result document has it
        json_.ValidUtf8(text_);
      }
    }
    json_.Key("Path").Utf8(place.path).Key("FileLine").Number(place.line).EndObject();
    output_.Write(json_.TakeLine());
  }

  Output& output_;
  Json json_;
  std::string text_;
};

class XmlReporter final : public Reporter {
 public:
  XmlReporter(ResultPage& page, Output& output) : output_(output), writer_("SearchResult", "MatchItem") {
    page.OnMatch = [this](const PositionInfo& pi) {
      MatchReader match(pi);
      writer_.BeginRow();
      for (const MatchFieldInfo& field : MatchFields()) {
        field.IsNumber() ? writer_.Number(field.Name, field.Number(match))
                         : writer_.Text(field.Name, field.Text(match));
      }
      writer_.EndRow();
      output_.Write(writer_.Take());
    };
  }

  void Finish() override {
    writer_.Finish();
    output_.Write(writer_.Take());
  }
  void Cut() override {
    if (writer_.HasRows()) Finish();
  }

 private:
  Output& output_;
  native::XmlRowWriter writer_;
};

class UniqueCountReporter final : public Reporter {
 public:
  UniqueCountReporter(ResultPage& page, Output& output) : output_(output) {
    page.OnMatch = [this](const PositionInfo& pi) { count_ += twins_.IsFirst(pi) ? 1 : 0; };
  }

  void Finish() override { output_.Write(std::to_string(count_) + '\n'); }

 private:
  Output& output_;
  TwinFilter twins_;
  std::int64_t count_ = 0;
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
  if (options.quiet) return std::make_unique<QuietReporter>(page);
  switch (options.format) {
    case Format::Lines: {
      const bool color = options.color == Color::Always || (options.color == Color::Auto && output.IsTerminal());
      return std::make_unique<LineReporter>(color, options, page, output);
    }
    case Format::Names:
      return std::make_unique<NameReporter>(page, output);
    case Format::Vimgrep:
      return std::make_unique<VimgrepReporter>(page, output);
    case Format::Json:
      return std::make_unique<JsonReporter>(page, output);
    case Format::Xml:
      return std::make_unique<XmlReporter>(page, output);
    case Format::Count:
      if (options.unique) return std::make_unique<UniqueCountReporter>(page, output);
      return std::make_unique<CountReporter>(page, output);
  }
  RaiseError(ErrorNumber::Internal);
}

}  // namespace quorvane::cli
