#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "windows/host32/AddInClient.h"
#include "windows/host32/MainFrame.h"
#include "windows/host32/Options.h"
#include "windows/host32/WindowObject.h"

namespace quorvane::container {

/// The container's second way in, beside keys and mouse: lines on standard input, in UTF-8, each answered by lines on
/// standard output of which the last begins with "ok" or "error NUMBER". A line is served as soon as any message loop
/// of the program runs, so also while a message box stands and in the midst of a search.
///
///     connect [MODE [PROGID]]   makes the add-in (QuorvaneForVB6.Connect) and tells it of its connection; MODE 0 to 2
///     disconnect [MODE]         tells it of its disconnection, closes its tool windows, releases it
///     drop                      releases it and tells it nothing, and closes its tool windows
///     other-thread [PROGID]     makes another one on a thread of its own, which then ends; "made" or its error
///     counts                    what the add-in still holds: "CodeModule 2, VBE 1", then what else is alive
///     free                      frees unused program files: "loaded" or "unloaded" says whether the add-in's is there
///     register FILE, unregister FILE
///     menu                      the entries of the Add-Ins menu, "+" or "-" (disabled) before each
///     click-menu                clicks the last entry, as the menu would
///     show P.M                  shows the module's pane
///     select P.M L1 C1 L2 C2    its selection; lines and screen columns from 1, end exclusive
///     selection P.M             prints it
///     active                    the module of the active pane
///     text P.M                  prints its text, "|" before each line
///     set-line P.M N TEXT       puts TEXT in the place of line N, as if typed
///     undo P.M                  takes back the last step
///     dock, float, dock-rudely, float-rudely
///                               destroys the document's window and makes it anew elsewhere; rudely: without telling it
///     windows                   every visible window of the program: handle, class, left, top, right, bottom (screen
///                               pixels), "enabled" or "disabled", owner or parent, title
///     title HANDLE              the text of the window or control
///     rows HANDLE [FROM COUNT]  the rows of a list, by its LB_ messages; FROM counts from 0; the number of rows last
///     row HANDLE N              the place of row N (from 0) of a list: left, top, right, bottom (screen pixels)
///     tab HANDLE N              the same of a tab of a strip
///     focus                     handle and class of the window with the focus
///     key KEYS                  presses keys together, by keybd_event: "ctrl+q", "shift+f3", "enter", "alt+f4", "down"
///     type TEXT                 types letters, digits and blanks
///     click X Y [right] [double]
///                               moves the mouse there (screen pixels) and clicks
///     move X Y                  moves the mouse
///     send HANDLE MESSAGE W L   sends a message (numbers) and prints its result
///     quit                      ends the program, an add-in that is loaded first (mode 0)
class Commands final : public WindowObject {
 public:
  Commands(MainFrame& frame, std::shared_ptr<Exporter> exporter, const Options& options);
  ~Commands() override;

  /// Begins to read standard input, on a thread of its own that lives as long as the program.
  void Listen();
  /// What a line on standard input does. Returns the answer.
  std::string Run(const std::string& line);

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  class Words;
  static constexpr UINT kTabItemRect = 0x130A;  // TCM_GETITEMRECT
  using Command = std::string (Commands::*)(Words& words);
  static const std::map<std::string, Command>& Table();

  std::string Connect(Words& words);
  std::string Disconnect(Words& words);
  std::string Drop(Words& words);
  std::string OtherThread(Words& words);
  std::string Counts(Words& words);
  std::string Free(Words& words);
  std::string Register(Words& words);
  std::string Unregister(Words& words);
  std::string Menu(Words& words);
  std::string ClickMenu(Words& words);
  std::string Show(Words& words);
  std::string Select(Words& words);
  std::string Selection(Words& words);
  std::string Active(Words& words);
  std::string Text(Words& words);
  std::string SetLine(Words& words);
  std::string Undo(Words& words);
  std::string Dock(Words& words) { return Place(words, true, false); }
  std::string Float(Words& words) { return Place(words, false, false); }
  std::string DockRudely(Words& words) { return Place(words, true, true); }
  std::string FloatRudely(Words& words) { return Place(words, false, true); }
  std::string Place(Words& words, bool docked, bool rude);
  std::string Windows(Words& words);
  std::string Title(Words& words);
  std::string Rows(Words& words);
  std::string Row(Words& words) { return PlaceOf(words, LB_GETITEMRECT, LB_ERR); }
  std::string Tab(Words& words) { return PlaceOf(words, kTabItemRect, FALSE); }
  std::string PlaceOf(Words& words, UINT message, LRESULT refusal);
  std::string Focus(Words& words);
  std::string Key(Words& words);
  std::string Type(Words& words);
  std::string Click(Words& words);
  std::string Move(Words& words);
  std::string Send(Words& words);
  std::string Quit(Words& words);

  workbench::Module& Module(const std::string& name) const;

  MainFrame& frame_;
  std::shared_ptr<Exporter> exporter_;
  AddInClient client_;
};

}  // namespace quorvane::container
