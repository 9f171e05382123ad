#include "windows/host32/Input.h"

#include <map>
#include <sstream>
#include <vector>

#include "base/Error.h"
#include "base/Text.h"
#include "windows/com/Win32.h"

namespace quorvane::container {

namespace {

const std::map<std::string, BYTE>& NamedKeys() {
  static const std::map<std::string, BYTE> keys = {
      {"ctrl", VK_CONTROL},  {"shift", VK_SHIFT},   {"alt", VK_MENU},  {"enter", VK_RETURN}, {"esc", VK_ESCAPE},
      {"tab", VK_TAB},       {"space", VK_SPACE},   {"up", VK_UP},     {"down", VK_DOWN},    {"left", VK_LEFT},
      {"right", VK_RIGHT},   {"home", VK_HOME},     {"end", VK_END},   {"pgup", VK_PRIOR},   {"pgdn", VK_NEXT},
      {"delete", VK_DELETE}, {"insert", VK_INSERT}, {"back", VK_BACK}, {"menu", VK_APPS},    {".", VK_OEM_PERIOD},
      {",", VK_OEM_COMMA}};
  return keys;
}

BYTE KeyOf(const std::string& name) {
  const auto known = NamedKeys().find(name);
  if (known != NamedKeys().end()) return known->second;
  if (name.size() == 1 && ((name[0] >= 'a' && name[0] <= 'z') || (name[0] >= '0' && name[0] <= '9'))) {
    return static_cast<BYTE>(name[0] >= 'a' ? name[0] - 32 : name[0]);
  }
  if (name.size() > 1 && name[0] == 'f') return static_cast<BYTE>(VK_F1 + std::stoi(name.substr(1)) - 1);
  RaiseError(ErrorNumber::InvalidProcedureCall, FromUtf8("no key " + name));
}

void Press(BYTE key, bool up) {
  const DWORD extended = key >= VK_PRIOR && key <= VK_DELETE ? KEYEVENTF_EXTENDEDKEY : 0;
  keybd_event(key, static_cast<BYTE>(MapVirtualKeyW(key, 0)), extended | (up ? KEYEVENTF_KEYUP : 0), 0);
}

}  // namespace

void PressKeys(const std::string& keys) {
  std::vector<BYTE> pressed;
  std::stringstream words(keys);
  for (std::string word; std::getline(words, word, '+');) pressed.push_back(KeyOf(word));
  for (const BYTE key : pressed) Press(key, false);
  for (auto key = pressed.rbegin(); key != pressed.rend(); ++key) Press(*key, true);
}

void TypeText(const std::string& text) {
  for (const char c : text) {
    const bool upper = c >= 'A' && c <= 'Z';
    const std::string key = c == ' ' ? "space" : std::string(1, upper ? static_cast<char>(c + 32) : c);
    PressKeys(upper ? "shift+" + key : key);
  }
}

void MoveMouse(int x, int y) {
  SetCursorPos(x, y);
  mouse_event(MOUSEEVENTF_MOVE, 0, 0, 0, 0);
}

void ClickMouse(bool right, bool twice) {
  for (int i = 0; i < (twice ? 2 : 1); ++i) {
    mouse_event(right ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
    mouse_event(right ? MOUSEEVENTF_RIGHTUP : MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
  }
}

}  // namespace quorvane::container
