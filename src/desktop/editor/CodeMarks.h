#pragma once

#include <QObject>
#include <QTextCursor>
#include <cstdint>
#include <vector>

namespace quorvane::desktop {

class CodeEdit;

/// Numbered marks on places of an editor's text. They move with edits, and one goes when its text is no longer what it
/// was. The editor draws those that are in view, the ruler all.
class CodeMarks final : public QObject {
 public:
  struct Place {
    int begin = 0;  ///< 0-based, in units of the document
    int end = 0;    ///< exclusive
    std::int32_t number = 0;
  };

  /// The editor outlives this.
  explicit CodeMarks(CodeEdit& editor);

  /// These instead of those before; empty ranges are left out.
  void Set(std::vector<Place> places);
  bool Empty() const { return marks_.empty(); }
  /// As they are now, in the order of the text.
  std::vector<Place> Places() const;
  /// The number of the mark that the editor's selection is, or that its cursor stands in or at; 0 for none.
  std::int32_t NumberAtCursor() const;
  /// 0-based lines that a mark begins in, each once.
  std::vector<int> Lines() const;

 private:
  struct Mark {
    QTextCursor range;
    QString text;
    int column = 0;  ///< of the begin in its line, before the edit of the moment
    std::int32_t number = 0;
  };

  void Follow(int position, int added);
  bool Keeps(Mark& mark) const;
  std::size_t FirstBehind(int position) const;
  void Show();

  CodeEdit& editor_;
  std::vector<Mark> marks_;  ///< invariant: by begin
};

}  // namespace quorvane::desktop
