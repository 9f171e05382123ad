#include "desktop/platform/Texts.h"

#include <array>
#include <cstddef>

#include "addin/core/Globals.h"
#include "addin/core/LanguageManager.h"
#include "desktop/platform/ReasonTexts.h"

namespace quorvane::desktop {

namespace {

/// Where a language tells one from many, the form of one stands in front of a bar.
struct Words {
  Text text;
  const char16_t* chinese;
  const char16_t* english;
};

constexpr std::array kWords = {
    Words{Text::MenuFile, u"文件(&F)", u"&File"},
    Words{Text::FileOpen, u"打开(&O)...", u"&Open..."},
    Words{Text::FileAdd, u"添加工程或文件(&D)...", u"A&dd project or files..."},
    Words{Text::FileRecent, u"最近打开(&R)", u"Open &recent"},
    Words{Text::FileRecentNone, u"(无)", u"(none)"},
    Words{Text::FileSave, u"保存(&S)", u"&Save"},
    Words{Text::FileSaveAll, u"全部保存(&L)", u"Save a&ll"},
    Words{Text::FileClose, u"关闭工程组(&C)", u"&Close group"},
    Words{Text::FileExit, u"退出(&X)", u"E&xit"},
    Words{Text::MenuEdit, u"编辑(&E)", u"&Edit"},
    Words{Text::EditUndo, u"撤消(&U)", u"&Undo"},
    Words{Text::EditRedo, u"重做(&R)", u"&Redo"},
    Words{Text::EditCut, u"剪切(&T)", u"Cu&t"},
    Words{Text::EditCopy, u"复制(&C)", u"&Copy"},
    Words{Text::EditPaste, u"粘贴(&P)", u"&Paste"},
    Words{Text::EditSelectAll, u"全选(&A)", u"Select &all"},
    Words{Text::EditFind, u"查找和替换(&F)...", u"&Find and replace..."},
    Words{Text::EditGoToLine, u"转到行(&G)...", u"&Go to line..."},
    Words{Text::EditNextMatch, u"下一个匹配(&N)", u"&Next match"},
    Words{Text::EditPreviousMatch, u"上一个匹配(&V)", u"Pre&vious match"},
    Words{Text::MenuView, u"视图(&V)", u"&View"},
    Words{Text::ViewProjects, u"工程树(&P)", u"&Project tree"},
    Words{Text::ViewTabs, u"以标签页显示代码窗口(&T)", u"Code windows as &tabs"},
    Words{Text::ViewTheme, u"外观(&A)", u"&Appearance"},
    Words{Text::ThemeSystem, u"跟随系统(&S)", u"As the &system"},
    Words{Text::ThemeLight, u"浅色(&L)", u"&Light"},
    Words{Text::ThemeDark, u"深色(&D)", u"&Dark"},
    Words{Text::ViewLarger, u"放大文字(&I)", u"Text &larger"},
    Words{Text::ViewSmaller, u"缩小文字(&O)", u"Text &smaller"},
    Words{Text::ViewNormalSize, u"默认文字大小(&N)", u"Text of &normal size"},
    Words{Text::MenuWindow, u"窗口(&W)", u"&Window"},
    Words{Text::WindowTile, u"平铺(&T)", u"&Tile"},
    Words{Text::WindowCascade, u"层叠(&C)", u"&Cascade"},
    Words{Text::WindowNext, u"下一个窗口(&N)", u"&Next window"},
    Words{Text::WindowPrevious, u"上一个窗口(&P)", u"&Previous window"},
    Words{Text::WindowClose, u"关闭窗口(&L)", u"C&lose window"},
    Words{Text::WindowCloseAll, u"关闭所有窗口(&A)", u"Close &all windows"},
    Words{Text::MenuAddIns, u"外接程序(&A)", u"&Add-Ins"},
    Words{Text::MenuHelp, u"帮助(&H)", u"&Help"},
    Words{Text::HelpAbout, u"关于工作台(&A)", u"&About the workbench"},
    Words{Text::AboutText, u"Quorvane %1\n\nVisual Basic 6 工程的查找与替换，以及它的工作台。",
          u"Quorvane %1\n\nFind and replace for Visual Basic 6 projects, in a workbench of its own."},
    Words{Text::OpenTitle, u"打开工程组、工程或模块", u"Open a project group, projects or modules"},
    Words{Text::FilterProjects, u"工程组与工程", u"Project groups and projects"},
    Words{Text::FilterModules, u"模块", u"Modules"},
    Words{Text::FilterAll, u"所有文件", u"All files"},
    Words{Text::Projects, u"工程", u"Projects"},
    Words{Text::TreeFilter, u"按名称筛选", u"Filter by name"},
    Words{Text::NewTab, u"新建标签页", u"New tab"},
    Words{Text::ResultList, u"搜索结果列表", u"List of search results"},
    Words{Text::TreeViewCode, u"查看代码(&V)", u"&View code"},
    Words{Text::TreeSetActive, u"设为当前工程(&S)", u"&Set as current project"},
    Words{Text::TreeCloseProject, u"移除工程(&R)", u"&Remove project"},
    Words{Text::FolderForms, u"窗体", u"Forms"},
    Words{Text::FolderModules, u"模块", u"Modules"},
    Words{Text::FolderClasses, u"类模块", u"Class modules"},
    Words{Text::FolderControls, u"用户控件", u"User controls"},
    Words{Text::FolderPages, u"属性页", u"Property pages"},
    Words{Text::FolderDocuments, u"用户文档", u"User documents"},
    Words{Text::FolderDesigners, u"设计器", u"Designers"},
    Words{Text::FolderRelated, u"相关文档", u"Related documents"},
    Words{Text::StatusPlace, u"行 %1，列 %2", u"Line %1, column %2"},
    Words{Text::StatusMatch, u"匹配 %1 / %2", u"Match %1 of %2"},
    Words{Text::StatusSelected, u"已选 %1 个字符", u"%1 character selected|%1 characters selected"},
    Words{Text::Hint, u"打开 Visual Basic 6 工程组或工程", u"Open a Visual Basic 6 project group or project"},
    Words{Text::HintMore, u"按 Ctrl+O，或把文件拖到这里", u"Press Ctrl+O, or drop files here"},
    Words{Text::HintOpen, u"从工程树中打开模块", u"Open a module from the project tree"},
    Words{Text::HintSearch, u"搜索命令在“外接程序”菜单中", u"The search is in the Add-Ins menu"},
    Words{Text::Loading, u"正在打开文件...", u"Opening files..."},
    Words{Text::Cancel, u"取消", u"Cancel"},
    Words{Text::NotAllOpened, u"有 %1 个列出的文件未能打开。",
          u"%1 listed file could not be opened.|%1 listed files could not be opened."},
    Words{Text::CannotOpen, u"无法打开。", u"Cannot open."},
    Words{Text::CannotSave, u"无法保存。", u"Cannot save."},
    Words{Text::SaveQuestion, u"有 %1 个模块尚未保存。是否保存？",
          u"%1 module has unsaved changes. Save it?|%1 modules have unsaved changes. Save them?"},
    Words{Text::SaveAnswer, u"保存(&S)", u"&Save"},
    Words{Text::DiscardAnswer, u"不保存(&D)", u"&Don't save"},
    Words{Text::CancelAnswer, u"取消(&C)", u"&Cancel"},
    Words{Text::ReloadQuestion,
          u"文件 %1 已被其他程序修改，而这里也有未保存的改动。\n是否重新载入？（可用撤消恢复您的改动）",
          u"%1 was changed by another program, and has changes here that are not saved.\n"
          u"Load it again? (Undo brings your changes back.)"},
    Words{Text::ReloadAnswer, u"重新载入(&R)", u"&Reload"},
    Words{Text::KeepAnswer, u"保留我的改动(&K)", u"&Keep mine"},
    Words{Text::CompareAnswer, u"比较(&M)...", u"Co&mpare..."},
    Words{Text::Reloaded, u"已重新载入被其他程序修改的 %1", u"Another program changed %1; it was loaded again"},
    Words{Text::FileGone, u"无法读取 %1。", u"Cannot read %1."},
    Words{Text::RestoreQuestion, u"文件 %1 已不在磁盘上。\n是否重新写入？",
          u"%1 is no longer on disk.\nWrite it again?"},
    Words{Text::RestoreAnswer, u"重新写入(&W)", u"&Write it again"},
    Words{Text::SaveAsAnswer, u"另存为(&A)...", u"Save &as..."},
    Words{Text::NotNowAnswer, u"暂不(&N)", u"&Not now"},
    Words{Text::SaveAsTitle, u"模块另存为", u"Save the module as"},
    Words{Text::SavedElsewhere, u"已保存为 %1；工程文件中仍列着 %2", u"Saved as %1; the project file still lists %2"},
    Words{Text::LineNumber, u"行号（1 到 %1）：", u"Line number (1 to %1):"},
    Words{Text::OtherEnding, u"“%1”无法保存：结果只能保存为 .%2 文件。",
          u"\u201C%1\u201D cannot be saved: results are saved as .%2 alone."},
    Words{Text::NothingThere, u"此操作所需的内容没有打开，或已经关闭", u"What this needs is not open, or not any more"},
    Words{Text::NoResults, u"还没有搜索结果", u"There are no search results yet"},
    Words{Text::NoCodeWindow, u"没有打开的代码窗口。请先打开要搜索的模块，或选择更大的搜索范围。",
          u"No code window is open. Open the module to be searched, or choose a larger area."},
    Words{Text::NothingFound, u"没有找到匹配项", u"Nothing found"},
    Words{Text::CommentsToo, u"“全部替换”也会替换注释中的匹配项，即使搜索时不包括注释",
          u"Replace All replaces in comments too, also where the search leaves them out"},
    Words{Text::ReplaceByRegexp, u"“全部替换”只能在“正则”方式下使用",
          u"Replace All works with the method Regexp alone"},
    Words{Text::ReplacedNothing, u"没有可替换的内容", u"There was nothing to replace"},
    Words{Text::Replaced, u"已在%2中替换 %1，包括注释", u"Replaced %1 in %2, comments included"},
    Words{Text::Places, u"%1 处", u"%1 place|%1 places"},
    Words{Text::Modules, u" %1 个模块", u"%1 module|%1 modules"},
    Words{Text::DroppedLines, u"保存时去掉了 %1 个隐藏行，因为它们所属的代码行已被删除。",
          u"%1 hidden line was left out of the saved files, because the code that it belonged to is gone.|"
          u"%1 hidden lines were left out of the saved files, because the code that they belonged to is gone."},
    Words{Text::HalfSaveQuestion,
          u"一次保存多个文件的操作中途被打断。\n\n已保存：\n%1\n\n未保存：\n%2\n\n继续完成，还是全部撤回？",
          u"A save of several files was cut short.\n\nSaved:\n%1\n\nNot saved:\n%2\n\n"
          u"Save the rest, or undo it in all of them?"},
    Words{Text::FinishAnswer, u"继续保存(&S)", u"&Save the rest"},
    Words{Text::GoBackAnswer, u"全部撤回(&U)", u"&Undo it"},
    Words{Text::OutsideQuestion, u"以下文件由工程以绝对路径列出，位于所有工程文件夹之外：\n\n%1\n\n仍要写入吗？",
          u"A project lists these files by an absolute path, outside the folders of all projects:\n\n%1\n\n"
          u"Write them all the same?"},
    Words{Text::AddInNotStarted, u"无法启动外接程序，因为它的语言设置无效。\n“外接程序”菜单可用系统语言启动它。",
          u"The add-in was not started: its language is set to none that it has.\n"
          u"The Add-Ins menu starts it in the language of the system."},
    Words{Text::StartAddIn, u"用系统语言启动 Quorvane(&Q)", u"Start &Quorvane in the language of the system"},
    Words{Text::EditsFound, u"Quorvane 上次结束时有 %1 个模块尚未保存，其改动已另行保留。是否恢复？",
          u"Quorvane was ended while %1 module had unsaved changes, which were kept. Bring them back?|"
          u"Quorvane was ended while %1 modules had unsaved changes, which were kept. Bring them back?"},
    Words{Text::EditsBring, u"恢复(&B)", u"&Bring back"},
    Words{Text::EditsDelete, u"删除(&D)", u"&Delete"},
    Words{Text::EditsLost, u"有 %1 个模块的改动未能恢复，它们仍保留在 %2",
          u"The changes of %1 module could not be brought back; they stay in %2|"
          u"The changes of %1 modules could not be brought back; they stay in %2"},
    Words{Text::EditsKept, u"已恢复 %1 个模块的改动，尚未保存；撤消可回到文件的内容",
          u"Brought back the changes of %1 module, not saved yet; undo leads to what the file holds|"
          u"Brought back the changes of %1 modules, not saved yet; undo leads to what the files hold"},
    Words{Text::EditsOverNewer, u"有 %1 个文件此后已被其他程序修改。保存前请检查；撤消可回到文件现在的内容。",
          u"%1 file was changed by another program since. Look before you save; undo leads to what it holds now.|"
          u"%1 files were changed by other programs since. Look before you save; undo leads to what they hold now."},
    Words{Text::KeyTaken, u"\u26A0 %1 已用于“%2”，请先在那里移除。",
          u"\u26A0 %1 is the key of \u201C%2\u201D; remove it there first."},
    Words{Text::NoticeList, u"显示列表(&L)", u"Show &list"},
    Words{Text::NoticeClose, u"关闭", u"Close"},
    Words{Text::Changes, u"更改", u"Changes"},
    Words{Text::ViewChanges, u"更改(&C)", u"&Changes"},
    Words{Text::ChangesNone, u"没有尚未保存的更改。", u"Nothing differs from the files."},
    Words{Text::ChangesModules, u"%1 个模块", u"%1 module|%1 modules"},
    Words{Text::ChangesLines, u"%1 行", u"%1 line|%1 lines"},
    Words{Text::ChangesLine, u"第 %1 行", u"line %1"},
    Words{Text::ChangesHidden, u"其后的隐藏行：%1", u"hidden line behind it: %1"},
    Words{Text::ChangesPutBack, u"还原", u"Revert"},
    Words{Text::ChangesPrevious, u"上一处", u"Previous"},
    Words{Text::ChangesNext, u"下一处", u"Next"},
    Words{Text::ChangesSaveAll, u"全部保存", u"Save all"},
    Words{Text::ChangesCopyPatch, u"复制补丁", u"Copy patch"},
    Words{Text::ChangesExportPatch, u"导出补丁...", u"Export patch..."},
    Words{Text::ChangesNoPatch, u"无法生成补丁。", u"Cannot make the patch."},
    Words{Text::ChangesPatchCopied, u"已复制补丁。在 %1 中运行 patch --binary -p0 即可应用",
          u"Copied. To apply it, run patch --binary -p0 in %1"},
    Words{Text::ChangesPatchWritten, u"已写入 %1。在 %2 中运行 patch --binary -p0 即可应用",
          u"Wrote %1. To apply it, run patch --binary -p0 in %2"},
    Words{Text::TaskUndo, u"撤消全部替换（%2中的%1）", u"Undo Replace All (%1 in %2)"},
    Words{Text::TaskRedo, u"重做全部替换（%2中的%1）", u"Redo Replace All (%1 in %2)"},
    Words{Text::TaskUndoNone, u"撤消全部替换", u"Undo Replace All"},
    Words{Text::TaskRedoNone, u"重做全部替换", u"Redo Replace All"},
    Words{Text::TaskEdited, u"有 %1 个模块此后已被编辑，将保持不变。是否处理其余模块？",
          u"%1 module was edited since and stays as it is. Go on with the others?|"
          u"%1 modules were edited since and stay as they are. Go on with the others?"},
    Words{
        Text::TaskAllEdited, u"有 %1 个模块此后已被编辑，没有其余模块可以处理。",
        u"%1 module was edited since, and there are no others.|%1 modules were edited since, and there are no others."},
    Words{Text::TaskUndoRest, u"撤消其余(&U)", u"&Undo in the others"},
    Words{Text::TaskRedoRest, u"重做其余(&R)", u"&Redo in the others"},
    Words{Text::StartRecent, u"最近打开", u"Recent"},
    Words{Text::StartSample, u"试用示例(&T)", u"&Try a sample"},
    Words{Text::StartSampleMore, u"在您的文件夹中放置一份小商店示例并打开",
          u"Puts a copy of a small shop into your folder and opens it"},
    Words{Text::FileEncoding, u"以其他编码重新打开(&E)", u"R&eopen with encoding"},
    Words{Text::EncodingModule, u"当前模块(&M)", u"Current &module"},
    Words{Text::EncodingProject, u"当前工程(&P)", u"Current &project"},
    Words{Text::EncodingGroup, u"工程组(&G)", u"&Group"},
    Words{Text::StatusPage, u"代码页 %1", u"Code page %1"},
    Words{Text::PageQuestion, u"工程 %1 中的许多文字在代码页 %2 中无法阅读。\n用哪个代码页打开？所选的代码页会被记住。",
          u"Much of the text of project %1 cannot be read in code page %2.\n"
          u"Which one is it to be opened in? The answer is remembered."},
    Words{Text::PageKeep, u"保持 %1(&K)", u"&Keep %1"},
    Words{Text::SheetFault, u"第 %1 行：%2", u"Line %1: %2"},
    Words{Text::SheetSays, u"样式表输出的消息：%1", u"The stylesheet says: %1"},
    Words{Text::SheetQuestion, u"此样式表不能使用：\n%1\n\n使用它会使所有结果列表变空。",
          u"This stylesheet cannot be used:\n%1\n\nWith it, all lists of results would be empty."},
    Words{Text::SheetUse, u"仍然使用(&U)", u"&Use it all the same"},
    Words{Text::MenuGo, u"转到(&G)", u"&Go"},
    Words{Text::GoDefinition, u"定义(&D)", u"&Definition"},
    Words{Text::GoReferences, u"查找所有引用(&R)", u"Find all &references"},
    Words{Text::GoBack, u"上一位置(&B)", u"&Back"},
    Words{Text::GoForward, u"下一位置(&F)", u"&Forward"},
    Words{Text::GoProcedure, u"任意过程(&P)...", u"Any &procedure..."},
    Words{Text::GoNextProcedure, u"下一过程(&N)", u"&Next procedure"},
    Words{Text::GoPreviousProcedure, u"上一过程(&V)", u"Pre&vious procedure"},
    Words{Text::GoObjects, u"对象框(&O)", u"&Object box"},
    Words{Text::GoBookmark, u"切换书签(&K)", u"Toggle boo&kmark"},
    Words{Text::GoNextBookmark, u"下一书签(&X)", u"Ne&xt bookmark"},
    Words{Text::GoPreviousBookmark, u"上一书签(&U)", u"Previo&us bookmark"},
    Words{Text::BoxObjects, u"对象", u"Object"},
    Words{Text::BoxProcedures, u"过程", u"Procedure"},
    Words{Text::BoxGeneral, u"(通用)", u"(General)"},
    Words{Text::BoxDeclarations, u"(声明)", u"(Declarations)"},
    Words{Text::ProcedureTitle, u"转到过程", u"Go to procedure"},
    Words{Text::PaletteHint, u"输入名称中的几个字母", u"A few letters of the name"},
    Words{Text::PaletteCount, u"%1 / %2", u"%1 of %2"},
    Words{Text::DefinitionsOf, u"“%1”的声明", u"Declarations of %1"},
    Words{Text::DefinitionNone, u"打开的工程中没有声明“%1”。", u"No open project declares %1."},
    Words{Text::BookmarkNone, u"没有书签。", u"There are no bookmarks."},
    Words{Text::WindowSplit, u"拆分(&S)", u"&Split"},
    Words{Text::Clash, u"其他程序修改了 %1，而您也编辑过它。", u"Another program changed %1, which you have edited too."},
    Words{Text::ClashShow, u"三方比较(&T)...", u"Compare &three ways..."},
    Words{Text::ThreeOpened, u"打开时", u"As opened"},
    Words{Text::ThreeMine, u"我的改动", u"Mine"},
    Words{Text::ThreeTheirs, u"磁盘上", u"On disk"},
};

constexpr bool IsInOrder() {
  for (std::size_t i = 0; i < kWords.size(); ++i) {
    if (static_cast<std::size_t>(kWords[i].text) != i) return false;
  }
  return kWords.size() == static_cast<std::size_t>(Text::Count);
}
static_assert(IsInOrder(), "each text has its words, in the order of the enumeration");

}  // namespace

QString Texts::Counted(Text text, qsizetype count) const {
  const QString forms = (*this)(text);
  const qsizetype bar = forms.indexOf(QLatin1Char('|'));
  return (count == 1 && bar >= 0 ? forms.left(bar) : forms.mid(bar + 1)).arg(count);
}

Texts Texts::OfAddIn() {
  Texts texts;
  if (Globals::gobjErrorManager) texts.Language = Globals::Language().Language;
  return texts;
}

QString Texts::Reason(const QString& english) const {
  return Language == 0 ? ChineseReason(english) : english;
}

QString Texts::operator()(Text text) const {
  const Words& words = kWords[static_cast<std::size_t>(text)];
  return QString::fromUtf16(Language == 0 ? words.chinese : words.english);
}

}  // namespace quorvane::desktop
