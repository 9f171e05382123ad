#include "desktop/platform/ToolkitTexts.h"

#include <QApplication>
#include <QWidget>
#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace quorvane::desktop {

namespace {

using Words = std::pair<std::string_view, const char16_t*>;

constexpr std::array kWords = {
    Words{"OK", u"确定"},
    Words{"&OK", u"确定(&O)"},
    Words{"Save", u"保存"},
    Words{"&Save", u"保存(&S)"},
    Words{"Open", u"打开"},
    Words{"&Open", u"打开(&O)"},
    Words{"Cancel", u"取消"},
    Words{"&Cancel", u"取消(&C)"},
    Words{"Discard", u"不保存"},
    Words{"Close without Saving", u"不保存"},
    Words{"&Yes", u"是(&Y)"},
    Words{"&No", u"否(&N)"},
    Words{"Abort", u"中止"},
    Words{"Retry", u"重试"},
    Words{"Ignore", u"忽略"},
    Words{"Close", u"关闭"},
    Words{"Show Details...", u"显示详细信息..."},
    Words{"Hide Details...", u"隐藏详细信息..."},
    Words{"&Undo", u"撤消(&U)"},
    Words{"&Redo", u"重做(&R)"},
    Words{"Cu&t", u"剪切(&T)"},
    Words{"&Copy", u"复制(&C)"},
    Words{"&Paste", u"粘贴(&P)"},
    Words{"Delete", u"删除"},
    Words{"Select All", u"全选"},
    Words{"&Restore", u"还原(&R)"},
    Words{"&Move", u"移动(&M)"},
    Words{"&Size", u"大小(&S)"},
    Words{"Mi&nimize", u"最小化(&N)"},
    Words{"Ma&ximize", u"最大化(&X)"},
    Words{"Stay on &Top", u"总在最前(&T)"},
    Words{"&Close", u"关闭(&C)"},
    Words{"Float", u"浮动"},
    Words{"Undocks and re-attaches the dock widget", u"使停靠窗口浮动或重新停靠"},
    Words{"Closes the dock widget", u"关闭停靠窗口"},
    Words{"Scroll Left", u"向左滚动"},
    Words{"Scroll Right", u"向右滚动"},
};

/// A part of a widget that the toolkit names when it makes it, and not again.
struct Part {
  const char* object;
  const char* context;
  const char* name;
  const char* description;  ///< null: none
};

constexpr Part kParts[] = {
    {"qt_dockwidget_floatbutton", "QDockWidget", "Float", "Undocks and re-attaches the dock widget"},
    {"qt_dockwidget_closebutton", "QDockWidget", "Close", "Closes the dock widget"},
    {"ScrollLeftButton", "QTabBar", "Scroll Left", nullptr},
    {"ScrollRightButton", "QTabBar", "Scroll Right", nullptr},
};

}  // namespace

QString ToolkitTexts::translate(const char*, const char* source, const char*, int) const {
  const auto found = std::ranges::find(kWords, std::string_view(source), &Words::first);
  return found != kWords.end() ? QString::fromUtf16(found->second) : QString();
}

void ToolkitTexts::NameParts() {
  for (QWidget* widget : QApplication::allWidgets()) {
    for (const Part& part : kParts) {
      if (widget->objectName() != QLatin1String(part.object)) continue;
      widget->setAccessibleName(QCoreApplication::translate(part.context, part.name));
      if (part.description == nullptr) continue;
      widget->setAccessibleDescription(QCoreApplication::translate(part.context, part.description));
    }
  }
}

}  // namespace quorvane::desktop
