#pragma once

#include <QString>
#include <cstdint>

namespace quorvane::desktop {

/// The words of the workbench's own windows. Those of the add-in come from its string table.
enum class Text {
  MenuFile,
  FileOpen,
  FileAdd,
  FileRecent,
  FileRecentNone,
  FileSave,
  FileSaveAll,
  FileClose,
  FileExit,
  MenuEdit,
  EditUndo,
  EditRedo,
  EditCut,
  EditCopy,
  EditPaste,
  EditSelectAll,
  EditFind,
  EditGoToLine,
  MenuView,
  ViewProjects,
  ViewTabs,
  ViewTheme,
  ThemeSystem,
  ThemeLight,
  ThemeDark,
  ViewLarger,
  ViewSmaller,
  ViewNormalSize,
  MenuWindow,
  WindowTile,
  WindowCascade,
  WindowNext,
  WindowPrevious,
  WindowClose,
  WindowCloseAll,
  MenuAddIns,
  MenuHelp,
  HelpAbout,
  AboutText,
  OpenTitle,
  FilterProjects,
  FilterModules,
  FilterAll,
  Projects,
  TreeFilter,
  TreeViewCode,
  TreeSetActive,
  TreeCloseProject,
  FolderForms,
  FolderModules,
  FolderClasses,
  FolderControls,
  FolderPages,
  FolderDocuments,
  FolderDesigners,
  FolderRelated,
  StatusPlace,
  StatusSelected,
  Hint,
  HintMore,
  HintOpen,
  HintSearch,
  Loading,
  Cancel,
  NotAllOpened,
  CannotOpen,
  CannotSave,
  SaveQuestion,
  SaveAnswer,
  DiscardAnswer,
  CancelAnswer,
  ReloadQuestion,
  ReloadAnswer,
  KeepAnswer,
  CompareAnswer,
  Reloaded,
  FileGone,
  RestoreQuestion,
  RestoreAnswer,
  SaveAsAnswer,
  NotNowAnswer,
  SaveAsTitle,
  SavedElsewhere,
  LineNumber,
  DroppedLines,
  HalfSaveQuestion,
  FinishAnswer,
  GoBackAnswer,
  OutsideQuestion,
  Count,
};

/// Looks the words up in one language; placeholders are %1, %2.
class Texts {
 public:
  /// 0 Chinese, 1 English, as everywhere in the add-in.
  std::int32_t Language = 0;

  QString operator()(Text text) const;
  /// With `count` for %1, in the form that this number takes.
  QString Counted(Text text, qsizetype count) const;
};

}  // namespace quorvane::desktop
