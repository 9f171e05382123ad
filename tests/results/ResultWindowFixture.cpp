#include "ResultWindowFixture.h"

#include "addin/connect/Connect.h"
#include "platform/forms/Forms.h"
#include "workbench/model/HostWindows.h"

namespace quorvane::test {

/// The workbench's windows, and a list under the mouse.
class ResultWorld::Windows final : public NativeWindows {
 public:
  explicit Windows(ResultWorld& world) : world_(world), table_(*world.host_) {}
  WindowHandle FindWindow(std::u16string_view className, std::u16string_view windowName) override {
    return table_.FindWindow(className, windowName);
  }
  WindowHandle FindWindowEx(WindowHandle parent, std::u16string_view className,
                            std::u16string_view windowName) override {
    return table_.FindWindowEx(parent, className, windowName);
  }
  std::int32_t SendMessage(WindowHandle window, std::uint32_t message, std::int32_t wParam,
                           std::int32_t lParam) override {
    constexpr std::uint32_t kItemFromPoint = 425;
    if (message != kItemFromPoint) return table_.SendMessage(window, message, wParam, lParam);
    world_.log.push_back("row-at:" + std::to_string(window) + ":" + std::to_string(lParam));
    return world_.rowUnderMouse;
  }

 private:
  ResultWorld& world_;
  workbench::WindowTable table_;
};

class ResultWorld::SearchDialog final : public forms::Form, public ISearchDialog {
 public:
  explicit SearchDialog(ResultWorld& world) : Form(u"frmSearchDialog"), world_(world) {}
  void ShowEx() override { world_.log.push_back("ShowEx"); }

 private:
  ResultWorld& world_;
};

class ResultWorld::Preview final : public forms::Form, public ICodePreview {
 public:
  explicit Preview(ResultWorld& world) : Form(u"frmCodePreview"), world_(world) {}
  std::int32_t Mode() const override { return mode_; }
  void SetMode(std::int32_t mode) override {
    mode_ = mode;
    world_.log.push_back("mode:" + std::to_string(mode));
    if (mode != 0) Show();
    if (mode == 0) Hide();
  }
  void Update(const std::shared_ptr<PositionInfo>& pi, ICondInfo& cond) override {
    EXPECT_EQ(&cond, world_.Active().mobjCondSnap.get());
    world_.log.push_back("update:" + std::to_string(pi->mlngID));
    if (world_.failPreview) RaiseError(ErrorNumber::InvalidProcedureCall);
  }
  bool CanShow() override { return true; }
  void UpdatePreviewPos() override { world_.log.push_back("pos"); }

 private:
  ResultWorld& world_;
  std::int32_t mode_ = 0;
};

ResultWorld::ResultWorld(const Group& group) : host_(group.Build(platform.AnsiCodePage())) {
  Globals::ReleaseObjects();  // the connection makes its own
  windows_ = std::make_unique<Windows>(*this);
  platform.windows = windows_.get();
  RegisterForms();
  PageManager::SetPageFactory([] { return std::make_shared<Page>(); });
  host_->TheWindows()->RegisterDocumentFactory(std::u16string(ResultDialog::ProgId),
                                               [] { return std::make_shared<ResultDialog>(); });
  loader_ = std::make_unique<workbench::AddInLoader>(host_);
  loader_->Register(u"QuorvaneForVB6.Connect", [] { return std::make_shared<Connect>(); });
  loader_->Load(u"QuorvaneForVB6.Connect", vbide::ConnectMode::Startup);
  Setting().menumIgnoreComment = gsIncludeComment;
}

ResultWorld::~ResultWorld() {
  loader_.reset();
  PageManager::SetPageFactory(nullptr);
  forms::TheForms().Forget();
  platform.windows = nullptr;
}

void ResultWorld::RegisterForms() {
  forms::TheForms().Register(u"frmSearchDialog", [this] { return std::make_shared<SearchDialog>(*this); });
  forms::TheForms().Register(u"frmCodePreview", [this] { return std::make_shared<Preview>(*this); });
}

std::string ResultWorld::Search(const std::u16string& text, gsMode mode) {
  Setting().menumArea = gsAllProjects;
  Setting().menumMode = mode;
  Setting().mstrSearchStr = text;
  if (!Pages().ActivePage()) Pages().AddNewPage();
  const auto task = Active().mobjTask;
  try {
    task->Run(kTaskSearch);
  } catch (const Error& error) {
    return std::to_string(error.Number) + " " + ToUtf8(error.Description);
  }
  return "";
}

std::string ResultWorld::Rows() {
  std::vector<std::string> rows;
  for (std::int32_t i = 0; i < List().ListCount(); ++i) {
    rows.push_back((i == List().ListIndex() ? ">" : "") + std::to_string(List().ItemData(i)) + ": " +
                   ToUtf8(List().List(i)));
  }
  return Join(rows);
}

std::string ResultWorld::Selection() {
  const auto pane = host_->ActiveCodePane();
  if (!pane) return "none";
  const vbide::Selection at = pane->GetSelection();
  return ToUtf8(pane->CodeModule()->Parent()->Name()) + " " + std::to_string(at.StartLine) + "," +
         std::to_string(at.StartColumn) + "-" + std::to_string(at.EndLine) + "," + std::to_string(at.EndColumn);
}

std::string ResultWorld::Log() {
  std::string text;
  for (const auto& entry : std::exchange(log, {})) text += (text.empty() ? "" : " ") + entry;
  return text;
}

std::string ResultWorld::Boxes() {
  std::string text;
  for (const auto& box : std::exchange(platform.prompts.Shown, {})) {
    text += (text.empty() ? "" : " ") + ToUtf8(box.text.substr(0, box.text.find(u"\r\n")));
  }
  return text;
}

std::u16string Stylesheet(std::u16string_view body) {
  return u"<xsl:stylesheet version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>"
         u"<xsl:output omit-xml-declaration='yes'/><xsl:template match='MatchItem'>" +
         std::u16string(body) + u"</xsl:template></xsl:stylesheet>";
}

}  // namespace quorvane::test
