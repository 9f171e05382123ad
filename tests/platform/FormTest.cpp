#include <gtest/gtest.h>

#include "platform/forms/Form.h"
#include "platform/forms/Forms.h"
#include "support/Raised.h"
#include "support/TestPlatform.h"

namespace quorvane {
namespace {

using test::Raised;
using Log = std::vector<std::string>;

/// A form that writes down its events and does in them what a test asks for.
class Recorded final : public forms::Form {
 public:
  Recorded(const std::u16string& name, Log& log) : Form(name), log_(log) {}

  bool cancelQuery = false;
  bool cancelUnload = false;
  std::function<void()> onLoad;
  std::function<void()> onQuery;

 protected:
  void Form_Load() override {
    Note("load");
    if (onLoad) onLoad();
  }
  void Form_QueryUnload(bool& cancel, forms::UnloadMode mode) override {
    Note("query " + std::to_string(static_cast<int>(mode)));
    if (onQuery) onQuery();
    cancel = cancelQuery;
  }
  void Form_Unload(bool& cancel) override {
    Note("unload");
    cancel = cancelUnload;
  }

 private:
  void Note(const std::string& what) { log_.push_back(ToUtf8(Name()) + " " + what); }

  Log& log_;
};

class FormTest : public testing::Test {
 protected:
  std::shared_ptr<Recorded> Make(const std::u16string& name) { return std::make_shared<Recorded>(name, log_); }
  ~FormTest() override {
    while (forms::TheForms().Count() > 0) {
      auto& form = static_cast<Recorded&>(*forms::TheForms().Item(0));
      form.cancelQuery = form.cancelUnload = false;
      form.Unload();
    }
    forms::TheForms().Forget();
  }

  test::TestPlatform platform_;
  Log log_;
};

TEST_F(FormTest, LoadsAtTheFirstShowAndStandsInTheListUntilUnloaded) {
  const auto a = Make(u"a");
  const auto b = Make(u"b");
  std::weak_ptr<forms::Form> listedInLoad;
  b->onLoad = [&] { listedInLoad = forms::TheForms().Item(1); };
  a->Show();
  b->Show();
  EXPECT_EQ(listedInLoad.lock(), b);
  a->Hide();
  EXPECT_TRUE(a->Loaded());
  a->Show();
  EXPECT_EQ(forms::TheForms().Open(), (std::vector<std::shared_ptr<forms::Form>>{a, b}));
  EXPECT_TRUE(a->Unload());
  EXPECT_TRUE(a->Unload()) << "a form that is not loaded is left alone";
  EXPECT_FALSE(a->Visible());
  a->Hide();
  EXPECT_EQ(forms::TheForms().Open(), (std::vector<std::shared_ptr<forms::Form>>{b}));
  a->Show();
  EXPECT_EQ(forms::TheForms().Open(), (std::vector<std::shared_ptr<forms::Form>>{b, a}));
  EXPECT_EQ(log_, (Log{"a load", "b load", "a query 1", "a unload", "a load"}));
  EXPECT_EQ(Raised([] { forms::TheForms().Item(2); }), 9);
  EXPECT_EQ(Raised([] { forms::TheForms().Item(-1); }), 9);
}

TEST_F(FormTest, UnloadAsksTwiceAndEitherMayCancel) {
  const auto form = Make(u"f");
  form->Show();
  form->cancelQuery = true;
  EXPECT_FALSE(form->CloseByUser());
  EXPECT_TRUE(form->Visible());
  form->cancelQuery = false;
  form->cancelUnload = true;
  EXPECT_FALSE(form->Unload(forms::UnloadMode::AppWindows));
  EXPECT_TRUE(form->Loaded());
  form->cancelUnload = false;
  form->onQuery = [&] {
    form->onQuery = nullptr;
    form->Unload(forms::UnloadMode::FormOwner);
  };
  EXPECT_TRUE(form->Unload());
  EXPECT_EQ(log_, (Log{"f load", "f query 0", "f query 2", "f unload", "f query 1", "f query 5", "f unload"}));
}

TEST_F(FormTest, AFailingLoadLeavesNoForm) {
  const auto form = Make(u"f");
  form->onLoad = [] { RaiseError(ErrorNumber::Overflow); };
  EXPECT_EQ(Raised([&] { form->Show(); }), 6);
  EXPECT_FALSE(form->Loaded());
  EXPECT_EQ(forms::TheForms().Count(), 0);
  form->onLoad = [&] { form->Unload(); };
  EXPECT_EQ(Raised([&] { form->Show(); }), 364);
  EXPECT_FALSE(form->Visible());
}

TEST_F(FormTest, AModalShowReturnsWhenTheFormIsHiddenOrUnloaded) {
  const auto owner = Make(u"owner");
  owner->Show();
  const auto form = Make(u"f");
  platform_.loop.Steps = {[&] {
                            EXPECT_TRUE(form->ShownModal());
                            EXPECT_EQ(form->Owner(), owner);
                            EXPECT_EQ(Raised([&] { form->Show(forms::FormModal::Modal); }), 400);
                          },
                          [&] { form->Hide(); }};
  form->Show(forms::FormModal::Modal, owner);
  EXPECT_TRUE(platform_.loop.Steps.empty());
  EXPECT_TRUE(form->Loaded());
  EXPECT_FALSE(form->ShownModal());

  platform_.loop.Steps = {[&] { form->CloseByUser(); }};
  form->Show(forms::FormModal::Modal);
  EXPECT_FALSE(form->Loaded());
  EXPECT_EQ(form->Owner(), nullptr);

  platform_.loop.Steps = {[] { RaiseError(ErrorNumber::Overflow); }};
  EXPECT_EQ(Raised([&] { form->Show(forms::FormModal::Modal); }), 6);
  EXPECT_FALSE(form->Visible()) << "nothing waits for it any more";
}

TEST_F(FormTest, ModalFormsNest) {
  const auto outer = Make(u"outer");
  const auto inner = Make(u"inner");
  platform_.loop.Steps = {[&] {
                            inner->Show(forms::FormModal::Modal, outer);
                            log_.push_back("inner is back");
                            outer->Unload();
                          },
                          [&] { inner->Unload(); }};
  outer->Show(forms::FormModal::Modal);
  EXPECT_EQ(log_, (Log{"outer load", "inner load", "inner query 1", "inner unload", "inner is back", "outer query 1",
                       "outer unload"}));
}

TEST_F(FormTest, ThereIsOneInstanceOfAFormUntilItIsUnloaded) {
  forms::TheForms().Register(u"frm", [this] { return Make(u"frm"); });
  const auto first = forms::TheForms().Instance(u"frm");
  EXPECT_FALSE(first->Loaded());
  EXPECT_EQ(forms::TheForms().Instance(u"frm"), first);
  first->Show();
  EXPECT_EQ(forms::TheForms().Instance(u"frm"), first);
  first->Unload();
  EXPECT_NE(forms::TheForms().Instance(u"frm"), first);
  EXPECT_EQ(Raised([] { forms::TheForms().Instance(u"frmOther"); }), 429);
}

}  // namespace
}  // namespace quorvane
