#include "windows/host32/Commands.h"

#include <cstdio>
#include <iostream>
#include <sstream>
#include <thread>
#include <utility>
#include <vector>

#include "base/Error.h"
#include "base/Skip.h"
#include "base/Text.h"
#include "windows/com/ErrorTranslation.h"
#include "windows/com/ModuleReference.h"
#include "windows/host32/Classes.h"
#include "windows/host32/Input.h"
#include "workbench/model/CommandButton.h"
#include "workbench/model/HostAddins.h"
#include "workbench/model/HostCommandBars.h"
#include "workbench/model/HostWindow.h"

namespace quorvane::container {

namespace {

constexpr UINT kLine = WM_APP + 1;
constexpr char kAddIn[] = "QuorvaneForVB6.Connect";
constexpr wchar_t kAddInFile[] = L"QuorvaneForVB6.dll";

std::string TitleOf(HWND window) {
  const auto length = static_cast<std::size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0));
  std::u16string title(length + 1, u'\0');
  const LRESULT copied = SendMessageW(window, WM_GETTEXT, length + 1, reinterpret_cast<LPARAM>(title.data()));
  title.resize(static_cast<std::size_t>(copied));
  return ToUtf8(title);
}

std::string ClassOf(HWND window) {
  char16_t name[256] = {};
  GetClassNameW(window, com::Wide(name), 256);
  return ToUtf8(name);
}

std::string FirstLine(const std::string& text) {
  return text.substr(0, text.find_first_of("\r\n"));
}

std::string Number(HWND window) {
  return std::to_string(reinterpret_cast<std::uintptr_t>(window));
}

/// One line about a window, as `windows` prints it.
std::string Described(HWND window) {
  RECT place{};
  GetWindowRect(window, &place);
  std::ostringstream line;
  line << Number(window) << ' ' << ClassOf(window) << ' ' << place.left << ' ' << place.top << ' ' << place.right << ' '
       << place.bottom << ' ' << (IsWindowEnabled(window) ? "enabled" : "disabled") << ' '
       << Number(GetAncestor(window, GA_PARENT)) << ' ' << FirstLine(TitleOf(window)) << '\n';
  return line.str();
}

BOOL CALLBACK DescribeVisible(HWND window, LPARAM text) {
  if (IsWindowVisible(window)) *reinterpret_cast<std::string*>(text) += Described(window);
  return TRUE;
}

BOOL CALLBACK DescribeTree(HWND window, LPARAM text) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  if (process != GetCurrentProcessId() || !IsWindowVisible(window)) return TRUE;
  DescribeVisible(window, text);
  EnumChildWindows(window, DescribeVisible, text);
  return TRUE;
}

/// Calls an entry of a program file that takes nothing.
void CallEntry(const std::string& file, const char* entry) {
  const std::u16string path = FromUtf8(file);
  const HMODULE module = LoadLibraryExW(com::Wide(path), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
  if (module == nullptr) com::Check(HRESULT_FROM_WIN32(GetLastError()));
  const auto function = reinterpret_cast<HRESULT(WINAPI*)()>(reinterpret_cast<void*>(GetProcAddress(module, entry)));
  const HRESULT result = function != nullptr ? function() : HRESULT_FROM_WIN32(ERROR_PROC_NOT_FOUND);
  FreeLibrary(module);
  com::Check(result);
}

}  // namespace

/// What stands behind the command on its line.
class Commands::Words {
 public:
  explicit Words(const std::string& line) : in_(line) { in_ >> Command; }

  std::string Command;

  /// `otherwise` when the line has ended; without it error 449.
  std::string Next(const char* otherwise = nullptr) {
    std::string word;
    if (in_ >> word) return word;
    if (otherwise == nullptr) throw Error(449, FromUtf8(Command + " needs more"));
    return otherwise;
  }
  int NextNumber(const char* otherwise = nullptr) { return std::stoi(Next(otherwise), nullptr, 0); }
  HWND NextWindow() { return reinterpret_cast<HWND>(static_cast<std::uintptr_t>(std::stoul(Next(), nullptr, 0))); }
  /// All that is left, without the blank before it.
  std::string Rest() {
    std::string rest;
    std::getline(in_, rest);
    return rest.empty() ? rest : rest.substr(1);
  }

 private:
  std::istringstream in_;
};

Commands::Commands(MainFrame& frame, std::shared_ptr<Exporter> exporter, const Options& options)
    : frame_(frame), exporter_(std::move(exporter)), client_(options.connectBy) {
  WindowObject::Register(L"QuorvaneCommands");
  CreateWindowExW(0, L"QuorvaneCommands", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, GetModuleHandleW(nullptr),
                  static_cast<WindowObject*>(this));
}

Commands::~Commands() {
  SkipErrors([this] { client_.Disconnect(0); });
  frame_.CloseToolWindows();
  DestroyWindow(handle_);
}

void Commands::Listen() {
  std::thread([window = handle_] {
    for (std::string line; std::getline(std::cin, line);) {
      if (!line.empty() && line.back() == '\r') line.pop_back();
      PostMessageW(window, kLine, 0, reinterpret_cast<LPARAM>(new std::string(line)));
    }
    PostMessageW(window, kLine, 0, reinterpret_cast<LPARAM>(new std::string("quit")));
  }).detach();
}

LRESULT Commands::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != kLine) return DefWindowProcW(handle_, message, wParam, lParam);
  const std::unique_ptr<std::string> line(reinterpret_cast<std::string*>(lParam));
  const std::string answer = Run(*line);
  std::fwrite(answer.data(), 1, answer.size(), stdout);
  std::fflush(stdout);
  return 0;
}

const std::map<std::string, Commands::Command>& Commands::Table() {
  static const std::map<std::string, Command> table = {{"connect", &Commands::Connect},
                                                       {"disconnect", &Commands::Disconnect},
                                                       {"drop", &Commands::Drop},
                                                       {"other-thread", &Commands::OtherThread},
                                                       {"counts", &Commands::Counts},
                                                       {"free", &Commands::Free},
                                                       {"register", &Commands::Register},
                                                       {"unregister", &Commands::Unregister},
                                                       {"menu", &Commands::Menu},
                                                       {"click-menu", &Commands::ClickMenu},
                                                       {"show", &Commands::Show},
                                                       {"select", &Commands::Select},
                                                       {"selection", &Commands::Selection},
                                                       {"active", &Commands::Active},
                                                       {"text", &Commands::Text},
                                                       {"set-line", &Commands::SetLine},
                                                       {"undo", &Commands::Undo},
                                                       {"dock", &Commands::Dock},
                                                       {"float", &Commands::Float},
                                                       {"dock-rudely", &Commands::DockRudely},
                                                       {"float-rudely", &Commands::FloatRudely},
                                                       {"windows", &Commands::Windows},
                                                       {"title", &Commands::Title},
                                                       {"rows", &Commands::Rows},
                                                       {"row", &Commands::Row},
                                                       {"tab", &Commands::Tab},
                                                       {"focus", &Commands::Focus},
                                                       {"key", &Commands::Key},
                                                       {"type", &Commands::Type},
                                                       {"click", &Commands::Click},
                                                       {"move", &Commands::Move},
                                                       {"send", &Commands::Send},
                                                       {"quit", &Commands::Quit}};
  return table;
}

std::string Commands::Run(const std::string& line) {
  try {
    Words words(line);
    const auto command = Table().find(words.Command);
    if (command == Table().end()) throw Error(5, FromUtf8("no command " + words.Command));
    const std::string answer = (this->*command->second)(words);
    return answer.find('\n') == answer.npos ? "ok " + answer + "\n" : answer + "ok\n";
  } catch (...) {
    const Error error = CurrentError();
    return "error " + std::to_string(error.Number) + " " + ToUtf8(error.Description) + "\n";
  }
}

workbench::Module& Commands::Module(const std::string& name) const {
  for (const auto& project : frame_.TheWorkbench().Projects()) {
    for (const auto& component : project->Components()) {
      if (component->TheModule() && ToUtf8(component->FullName()) == name) return *component->TheModule();
    }
  }
  throw Error(9, FromUtf8("no module " + name));
}

std::string Commands::Connect(Words& words) {
  const long mode = words.NextNumber("0");
  const std::u16string progId = FromUtf8(words.Next(kAddIn));
  const std::shared_ptr<vbide::VBE> host(std::shared_ptr<void>(), &frame_.TheWorkbench());
  client_.Connect(progId, exporter_->Export(host), mode,
                  exporter_->Export(frame_.TheWorkbench().TheAddins()->Register(progId)));
  return "connected";
}

std::string Commands::Disconnect(Words& words) {
  const long mode = words.NextNumber("1");
  try {
    client_.Disconnect(mode);
  } catch (...) {
    frame_.CloseToolWindows();
    throw;
  }
  frame_.CloseToolWindows();
  return "disconnected";
}

std::string Commands::Drop(Words&) {
  client_.Drop();
  frame_.CloseToolWindows();
  return "dropped";
}

std::string Commands::OtherThread(Words& words) {
  const std::u16string progId = FromUtf8(words.Next(kAddIn));
  std::string told = "made";
  std::thread([&] {
    CoInitialize(nullptr);
    try {
      MakeByProgId(progId);
    } catch (const Error& error) {
      told = "refused " + std::to_string(error.Number);
    }
    CoUninitialize();
  }).join();
  return told;
}

std::string Commands::Counts(Words&) {
  return exporter_->Living.Text();
}

std::string Commands::Free(Words&) {
  CoFreeUnusedLibrariesEx(0, 0);
  return GetModuleHandleW(kAddInFile) != nullptr ? "loaded" : "unloaded";
}

std::string Commands::Register(Words& words) {
  CallEntry(words.Rest(), "DllRegisterServer");
  return "registered";
}

std::string Commands::Unregister(Words& words) {
  CallEntry(words.Rest(), "DllUnregisterServer");
  return "unregistered";
}

std::string Commands::Menu(Words&) {
  std::string text;
  for (const auto& bar : frame_.TheWorkbench().TheCommandBars()->Bars()) {
    for (const auto& button : bar->Buttons()) {
      text += (button->Enabled() ? "+" : "-") + ToUtf8(button->Caption()) + "\n";
    }
  }
  return text;
}

std::string Commands::ClickMenu(Words&) {
  std::shared_ptr<workbench::CommandButton> last;
  for (const auto& bar : frame_.TheWorkbench().TheCommandBars()->Bars()) {
    if (!bar->Buttons().empty()) last = bar->Buttons().back();
  }
  if (!last) throw Error(9, u"the menu is empty");
  last->Click();
  return "clicked";
}

std::string Commands::Show(Words& words) {
  Deref(Module(words.Next()).CodePane()).Show();
  return "shown";
}

std::string Commands::Select(Words& words) {
  const auto pane = Module(words.Next()).CodePane();
  vbide::Selection place;
  place.StartLine = words.NextNumber();
  place.StartColumn = words.NextNumber();
  place.EndLine = words.NextNumber();
  place.EndColumn = words.NextNumber();
  pane->SetSelection(place);
  return "selected";
}

std::string Commands::Selection(Words& words) {
  const vbide::Selection place = Module(words.Next()).CodePane()->GetSelection();
  std::ostringstream text;
  text << place.StartLine << ' ' << place.StartColumn << ' ' << place.EndLine << ' ' << place.EndColumn;
  return text.str();
}

std::string Commands::Active(Words&) {
  const auto pane = frame_.TheWorkbench().ActiveCodePane();
  if (!pane) return "none";
  return ToUtf8(Deref(std::dynamic_pointer_cast<workbench::Component>(pane->CodeModule()->Parent())).FullName());
}

std::string Commands::Text(Words& words) {
  const std::u16string whole = Module(words.Next()).Text();
  std::string text;
  for (const auto line : Split(whole, kCrLf)) text += "|" + ToUtf8(line) + "\n";
  return text;
}

std::string Commands::SetLine(Words& words) {
  workbench::Module& module = Module(words.Next());
  const int line = words.NextNumber();
  module.DeleteLines(line, 1);
  module.InsertLines(line, FromUtf8(words.Rest()));
  return "set";
}

std::string Commands::Undo(Words& words) {
  return Module(words.Next()).Undo() ? "undone" : "nothing";
}

std::string Commands::Place(Words&, bool docked, bool rude) {
  ToolFrame* const tool = frame_.TheToolFrame();
  if (tool == nullptr) throw Error(9, u"there is no tool window");
  tool->SetDocked(docked, rude);
  return docked ? "docked" : "floating";
}

std::string Commands::Windows(Words&) {
  std::string text;
  EnumWindows(DescribeTree, reinterpret_cast<LPARAM>(&text));
  return text;
}

std::string Commands::Title(Words& words) {
  return TitleOf(words.NextWindow());
}

std::string Commands::Rows(Words& words) {
  const HWND list = words.NextWindow();
  const auto count = static_cast<int>(SendMessageW(list, LB_GETCOUNT, 0, 0));
  const int from = words.NextNumber("0");
  const int until = std::min(count, from + words.NextNumber("1000"));
  std::string text;
  for (int row = from; row < until; ++row) {
    const LRESULT length = SendMessageW(list, LB_GETTEXTLEN, static_cast<WPARAM>(row), 0);
    std::u16string line(static_cast<std::size_t>(length) + 1, u'\0');
    SendMessageW(list, LB_GETTEXT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(line.data()));
    line.pop_back();
    text += ToUtf8(line) + "\n";
  }
  return text + std::to_string(count) + "\n";
}

std::string Commands::PlaceOf(Words& words, UINT message, LRESULT refusal) {
  const HWND window = words.NextWindow();
  RECT place{};
  const auto item = static_cast<WPARAM>(words.NextNumber());
  if (SendMessageW(window, message, item, reinterpret_cast<LPARAM>(&place)) == refusal) throw Error(9, u"no such item");
  MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&place), 2);
  std::ostringstream text;
  text << place.left << ' ' << place.top << ' ' << place.right << ' ' << place.bottom;
  return text.str();
}

std::string Commands::Focus(Words&) {
  const HWND window = GetFocus();
  return Number(window) + " " + (window != nullptr ? ClassOf(window) : "none");
}

std::string Commands::Key(Words& words) {
  PressKeys(words.Next());
  return "pressed";
}

std::string Commands::Type(Words& words) {
  TypeText(words.Rest());
  return "typed";
}

std::string Commands::Click(Words& words) {
  const int x = words.NextNumber();
  MoveMouse(x, words.NextNumber());
  const std::string how = words.Rest();
  ClickMouse(how.find("right") != how.npos, how.find("double") != how.npos);
  return "clicked";
}

std::string Commands::Move(Words& words) {
  const int x = words.NextNumber();
  MoveMouse(x, words.NextNumber());
  return "moved";
}

std::string Commands::Send(Words& words) {
  const HWND window = words.NextWindow();
  const auto message = static_cast<UINT>(words.NextNumber());
  const auto wParam = static_cast<WPARAM>(words.NextNumber());
  return std::to_string(SendMessageW(window, message, wParam, words.NextNumber()));
}

std::string Commands::Quit(Words& words) {
  if (client_.Loaded()) Disconnect(words);
  PostQuitMessage(0);
  return "quitting";
}

}  // namespace quorvane::container
