#pragma once

#include <memory>
#include <string>

#include "base/Event.h"
#include "windows/controls/Layout.h"
#include "windows/dialogs/KeyBox.h"
#include "windows/forms/TextSize.h"
#include "windows/forms/Window.h"

namespace quorvane {

namespace chordtrap {
class ChordTrapControl;
}

namespace windows {

/// The key editor: the commands with their keys, the box that takes a key, and the buttons that give the key to the
/// chosen command or take its key away. Says so when another command has the key already.
class KeyEditorView final : public Window, public Placeable {
 public:
  /// The editor outlives this.
  KeyEditorView(chordtrap::ChordTrapControl& editor, HWND parent);
  ~KeyEditorView() override;

  HWND Commands() const { return commands_; }
  KeyBox& Box() { return *box_; }
  HWND AddButton() const { return add_; }
  HWND RemoveButton() const { return remove_; }
  /// The line that tells of a key that is taken; empty when there is nothing to tell.
  std::u16string Warning() const { return warning_; }

  SIZE Least() const override;
  void Place(const RECT& room) override;

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  HWND MakePart(const wchar_t* className, DWORD style, DWORD extendedStyle = 0);
  void MakeCommands();
  void Follow();
  void FollowRows();
  void ShowCell(int row, int column, const std::u16string& text);
  void SizeColumns();
  /// The command that has the pressed key already, but the chosen one; empty when there is none.
  std::u16string Owner() const;
  void OnCommand(HWND part, WORD code);
  void OnNotify(const NMHDR& told);
  void Add();

  chordtrap::ChordTrapControl& editor_;
  DialogUnits units_;
  HWND commands_ = nullptr;
  std::unique_ptr<KeyBox> box_;
  HWND add_ = nullptr;
  HWND remove_ = nullptr;
  HWND line_ = nullptr;  ///< shows the warning
  std::u16string warning_;
  bool busy_ = false;
  Subscription changed_;
  Subscription pressed_;
};

}  // namespace windows
}  // namespace quorvane
