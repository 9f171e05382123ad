#include "addin/dialogs/frmAbout.h"

#include <filesystem>
#include <fstream>
#include <string>

#include "addin/connect/Updater.h"
#include "addin/core/Globals.h"
#include "addin/core/LanguageManager.h"
#include "base/Error.h"
#include "base/Text.h"
#include "platform/App.h"
#include "platform/CodePage.h"
#include "platform/Platform.h"
#include "platform/Shell.h"

namespace quorvane {

namespace {

constexpr Color kBlue = 0xFF0000;
constexpr Color kWhite = 0xFFFFFF;
constexpr Color kGray = 0x808080;

/// The maintainer's, on the host of the project's pages.
std::u16string MailAddress() {
  const std::u16string& host = ThePlatform().TheApp().ProjectHost;
  return u"quorvane@" + host.substr(0, host.find(u':'));
}

void MakeLink(forms::Label& label, const std::u16string& text) {
  label.SetCaption(text);
  label.ForeColor = kBlue;
  label.HandPointer = true;
}

}  // namespace

frmAbout::frmAbout() : FramedDialog(u"frmAbout", forms::FormBorder::FixedDialog, forms::FormStart::CenterScreen) {
  PlaceControls();
  Line1[0]->BorderColor = kWhite;
  Line1[1]->BorderColor = kGray;
  txt说明->SetLocked(true);
  txt许可->SetLocked(true);
  MakeLink(*lblProjectUrl, ThePlatform().TheApp().ProjectHost);
  MakeLink(*lblEmail, MailAddress());
  SetDefaultButton(cmdOK);
  SetCancelButton(cmdOK);
  On(cmdOK->Click, [this] { Unload(); });
  On(lblProjectUrl->Click, [] { Deref(Globals::gobjUpdater).GotoProjectSite(); });
  On(lblEmail->Click, [] {
    if (Updater::MayGoOut()) ThePlatform().TheShell().OpenAddress(u"mailto:" + MailAddress());
  });
}

frmAbout::~frmAbout() = default;

void frmAbout::PlaceControls() {
  Frame说明->Add(txt说明);
  Frame许可->Add(txt许可);
  Controls().Place(u"picIcon", picIcon);
  Controls().Place(u"lblTitle", lblTitle);
  Controls().Place(u"lblVersion", lblVersion);
  Controls().Place(u"Frame说明", Frame说明);
  Controls().Place(u"txt说明", txt说明);
  Controls().Place(u"Frame许可", Frame许可);
  Controls().Place(u"txt许可", txt许可);
  Controls().Place(u"Line1", 0, Line1[0]);
  Controls().Place(u"Line1", 1, Line1[1]);
  Controls().Place(u"lbl网址", lbl网址);
  Controls().Place(u"lblProjectUrl", lblProjectUrl);
  Controls().Place(u"lbl邮箱", lbl邮箱);
  Controls().Place(u"lblEmail", lblEmail);
  Controls().Place(u"cmdOK", cmdOK);
}

void frmAbout::Form_Load() {
  Framed([&] {
    const LanguageManager& language = Globals::Language();
    language.UpdateUI(this);
    LoadFile(*txt说明, language.GetString(StringId::ReadMeFile));
    LoadFile(*txt许可, language.GetString(StringId::LicenceFile));
  });
}

void frmAbout::LoadFile(forms::TextBox& box, const std::u16string& name) {
  const std::u16string file = ThePlatform().TheApp().FileBeside(name);
  const std::filesystem::path path(file);
  if (!std::filesystem::exists(path)) return;
  std::ifstream stream(path, std::ios::binary);
  std::string bytes(static_cast<std::size_t>(std::filesystem::file_size(path)), '\0');
  if (!stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()))) {
    RaiseError(ErrorNumber::PathFileAccess, u"Path/File access error: " + file);
  }
  std::u16string text;
  ThePlatform().AnsiCodePage().Decode(bytes, text);
  box.SetText(text);
}

void frmAbout::Update() {
  const LanguageManager& language = Globals::Language();
  const App& app = ThePlatform().TheApp();
  SetCaption(language.GetString(StringId::AboutTitle) + app.Title);
  lblVersion->SetCaption(language.GetString(StringId::VersionLabel) + ToText(app.Major) + u"." + ToText(app.Minor) +
                         u".0." + ToText(app.Revision));
  lblTitle->SetCaption(app.Title);
  Frame说明->SetCaption(language.GetString(StringId::ReadMe));
  Frame许可->SetCaption(language.GetString(StringId::Licence));
  lbl网址->SetCaption(language.GetString(StringId::Website));
  lbl邮箱->SetCaption(language.GetString(StringId::Email));
  cmdOK->SetCaption(language.GetString(StringId::AboutOk));
}

}  // namespace quorvane
