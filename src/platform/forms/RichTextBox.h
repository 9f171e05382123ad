#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Canvas.h"
#include "platform/forms/Control.h"
#include "platform/forms/Font.h"

namespace quorvane::forms {

/// A text of several lines whose characters have a colour and may be struck through. Places are 0-based in UTF-16 units
/// of the text, a CR LF counts as two. Everything is done through the selection, as a user would: a selection of no
/// length is a caret, and a caret has a format of its own, in which text written there stands.
///
/// The view's side: it shows Text by Runs() and never writes. Filling a box raises Changed many times; a view may wait
/// and take them at once.
class RichTextBox final : public Control {
 public:
  /// The longest stretches of one format, in order, without gaps. Lengths in UTF-16 units.
  struct Run {
    std::int32_t Start = 0;
    std::int32_t Length = 0;
    quorvane::Color Color = 0;
    bool StrikeThru = false;

    bool operator==(const Run&) const = default;
  };

  const std::u16string& Text() const { return text_; }
  /// All of it in the format of the selection; the caret goes to the start. Raises Change.
  void SetText(const std::u16string& text);
  const std::vector<Run>& Runs() const { return runs_; }

  std::int32_t SelStart() const { return selStart_; }
  std::int32_t SelLength() const { return selLength_; }
  /// A place after the text becomes its end. Puts the caret there, in the format of the character before it, of the
  /// first one at the start. Error 380 below 0, as with SetSelLength.
  void SetSelStart(std::int32_t start);
  /// A selection beyond the text ends with it.
  void SetSelLength(std::int32_t length);

  std::u16string SelText() const;
  /// Puts `text` in the place of the selection, in its format, and the caret after it. Raises Change.
  void SetSelText(const std::u16string& text);
  /// Of the selection's first character, or of the caret; likewise SelStrikeThru.
  quorvane::Color SelColor() const { return SelFormat().Color; }
  void SetSelColor(quorvane::Color color);
  bool SelStrikeThru() const { return SelFormat().StrikeThru; }
  void SetSelStrikeThru(bool strikeThru);

  const forms::Font& Font() const { return font_; }
  void SetFont(const forms::Font& font);

  /// Asks the view to show everything again.
  void Refresh() { Changed.Raise(); }

  Event<> Change;  ///< the text

 private:
  /// Start and Length of these are not looked at.
  using Format = Run;

  std::int32_t Length() const { return static_cast<std::int32_t>(text_.size()); }
  Format FormatAt(std::int32_t place) const;
  Format SelFormat() const { return selLength_ > 0 ? FormatAt(selStart_) : caret_; }
  template <class Set>
  void SetFormat(Set set);
  void AddRun(std::vector<Run>& runs, Run run) const;
  void ReplaceSelection(std::u16string_view text, const Format& format);

  std::u16string text_;
  std::vector<Run> runs_;  ///< invariant: they cover the text in order, none is empty, neighbours differ
  Format caret_;
  forms::Font font_;
  std::int32_t selStart_ = 0;   ///< invariant: at most the length of the text
  std::int32_t selLength_ = 0;  ///< invariant: ends within the text
};

}  // namespace quorvane::forms
