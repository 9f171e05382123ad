#include "support/ConnectionFixture.h"

#include "addin/results/PageCollection.h"
#include "base/Text.h"

namespace quorvane::test {

void RecordedPage::Note(const std::string& what) {
  log_.push_back(ToUtf8(key_) + " " + what);
}

void RecordedPage::Setup(const std::shared_ptr<forms::Tab>& theTab) {
  Note("Setup");
  tab = theTab;
  tab->SetPanel(panel);
}

void RecordedPage::TearDown() {
  Note("TearDown");
}

RecordedDoc::RecordedDoc(Log& log) : log_(log) {
  tabControl->Add(std::u16string(kAddNewTab), u"", u" ", 0)->SetCanClose(false);
  log_.push_back("document made");
}

RecordedDoc::~RecordedDoc() {
  log_.push_back("document gone");
}

void RecordedDoc::Setup() {
  log_.push_back("document Setup");
  if (onSetup) onSetup();
}

void RecordedDoc::TearDown() {
  log_.push_back("document TearDown");
  if (onTearDown) onTearDown();
}

}  // namespace quorvane::test
