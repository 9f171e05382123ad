#include "DesktopFixture.h"

#include <QTreeWidget>

#include "desktop/shell/ProjectTree.h"
#include "workbench/model/Component.h"
#include "workbench/model/Project.h"

namespace quorvane::desktop {

DesktopTest::DesktopTest() {
  qputenv("QUORVANE_PROJECT_HOST", "127.0.0.1:1");  // nobody answers there
  std::filesystem::copy(QUORVANE_SOURCE_DIR "/samples", folder.Path() / "samples",
                        std::filesystem::copy_options::recursive);
  setup.configFolder = folder / "config";
  folder.Write("config/config.ini", "[Language Setting]\r\nLanguage=0\r\n");
  setup.programFolder = folder / "program";
  QObject::connect(&poll_, &QTimer::timeout, &poll_, [this] { WatchBoxes(); });
  poll_.start(5);
}

DesktopTest::~DesktopTest() {
  Stop();
  EXPECT_TRUE(answers_.empty()) << "a box did not come";
}

void DesktopTest::Start(const std::string& codePage) {
  setup.codePage = codePage;
  desktop = std::make_unique<Desktop>(setup);
  desktop->Start();
}

void DesktopTest::Stop() {
  desktop.reset();
}

void DesktopTest::Open(const std::string& file) {
  Window().OpenFiles({QString::fromStdString(folder / file)});
}

MainWindow& DesktopTest::Window() {
  return desktop->Window();
}

std::shared_ptr<workbench::Component> DesktopTest::ComponentNamed(const std::u16string& name) {
  for (const auto& project : desktop->Host().Projects()) {
    for (const auto& component : project->Components()) {
      if (component->Name() == name) return component;
    }
  }
  throw std::runtime_error("no such component");
}

workbench::Module& DesktopTest::ModuleNamed(const std::u16string& name) {
  return *ComponentNamed(name)->TheModule();
}

CodeEdit& DesktopTest::EditorOf(const std::u16string& name) {
  ModuleNamed(name).CodePane()->Show();
  return Window().Code().Current()->Editor();
}

QTreeWidgetItem* DesktopTest::ItemNamed(const QString& text) {
  for (QTreeWidgetItemIterator at(&Window().Tree().Tree()); *at != nullptr; ++at) {
    if ((*at)->text(0) == text) return *at;
  }
  return nullptr;
}

void DesktopTest::AnswerNext(int button, QString* shown) {
  answers_.push_back({button, shown});
}

void DesktopTest::WatchBoxes() {
  auto* box = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget());
  if (box == nullptr) return;
  const QString text = box->text() + box->informativeText();
  if (answers_.empty()) {
    ADD_FAILURE() << "a box that nobody waited for: " << text.toStdString();
    return box->reject();
  }
  const Answer answer = answers_.front();
  answers_.pop_front();
  if (answer.shown != nullptr) *answer.shown = text;
  QAbstractButton* wanted = box->button(static_cast<QMessageBox::StandardButton>(answer.button));
  EXPECT_NE(wanted, nullptr) << "no such button on: " << text.toStdString();
  wanted != nullptr ? wanted->click() : box->reject();
}

}  // namespace quorvane::desktop
