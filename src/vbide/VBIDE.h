#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/Event.h"

/// The host's object model: every operation of the host that the system uses, and no other. Lines and columns are
/// 1-based; columns of Find, GetSelection and SetSelection are screen columns, in which a character of two bytes takes
/// two. Objects are shared by counted reference; a way back to an owner that is gone gives nothing. The host hands out
/// one object for one thing, so that identity is pointer identity.
namespace quorvane::vbide {

class CodePane;
class VBComponent;
class VBComponents;
class VBProject;

/// Kinds of a procedure, as ProcOfLine gives them.
enum class ProcKind : std::int32_t { Proc = 0, Let = 1, Set = 2, Get = 3 };

/// VBComponent.Type
enum class ComponentType : std::int32_t {
  StdModule = 1,
  ClassModule = 2,
  MSForm = 3,
  ResFile = 4,
  VBForm = 5,
  VBMDIForm = 6,
  PropPage = 7,
  UserControl = 8,
  DocObject = 9,
  RelatedDocument = 10,
  ActiveXDesigner = 11,
};

/// A range of screen positions; the end is exclusive.
struct Selection {
  std::int32_t StartLine = 1;
  std::int32_t StartColumn = 1;
  std::int32_t EndLine = 1;
  std::int32_t EndColumn = 1;

  bool operator==(const Selection&) const = default;
};

/// A window of the host, around a code pane or a tool.
class Window {
 public:
  virtual ~Window() = default;

  virtual std::u16string Caption() const = 0;  ///< the native title
  virtual void SetCaption(const std::u16string& caption) = 0;
  virtual bool Visible() const = 0;
  virtual void SetVisible(bool visible) = 0;
  virtual void SetWindowState(std::int32_t state) = 0;  ///< 2 maximizes
  virtual void Close() = 0;
};

/// The text of a component as the host shows it.
class CodeModule {
 public:
  virtual ~CodeModule() = default;

  virtual std::shared_ptr<VBComponent> Parent() const = 0;
  /// Made at first use.
  virtual std::shared_ptr<vbide::CodePane> CodePane() = 0;

  virtual std::int32_t CountOfLines() const = 0;
  /// Number of the last line of the declarations section; 0 possible.
  virtual std::int32_t CountOfDeclarationLines() const = 0;

  /// Lines from `start` on, joined by CR LF, none after the last. A range past either end gives the lines that exist.
  virtual std::u16string Lines(std::int32_t start, std::int32_t count) const = 0;
  /// Puts `text`, which may hold line breaks, before line `line`, or at the end when `line` is after it. A lone LF at
  /// its very end adds no line. A `line` below 1 raises error 9.
  virtual void InsertLines(std::int32_t line, std::u16string_view text) = 0;
  /// Raises error 9 when not all of these lines exist.
  virtual void DeleteLines(std::int32_t start, std::int32_t count) = 0;

  /// Name of the procedure that the line belongs to, empty in the declarations section.
  virtual std::u16string ProcOfLine(std::int32_t line, ProcKind& kind) const = 0;
  /// First line of a procedure, blank lines and comments above its header included. Raises when there is none.
  virtual std::int32_t ProcStartLine(std::u16string_view name, ProcKind kind) const = 0;
  virtual std::int32_t ProcCountLines(std::u16string_view name, ProcKind kind) const = 0;

  /// Searches `range`; true when found, and `range` is then the match. Never an empty match.
  virtual bool Find(std::u16string_view target, Selection& range, bool wholeWord, bool matchCase,
                    bool patternSearch) const = 0;

  /// True when it is sure, for little, that Find finds `target` nowhere in the text; false when that is not known, as
  /// always for a host that can only be asked to search, and for a module without lines. Raises nothing.
  virtual bool SurelyLacks(std::u16string_view, bool /*wholeWord*/, bool /*matchCase*/, bool /*patternSearch*/) const {
    return false;
  }
  /// The same for ASCII texts: true when the text surely holds none of them. False for no texts and without lines.
  virtual bool SurelyLacksAll(const std::vector<std::string>& /*texts*/, bool /*matchCase*/) const { return false; }

  /// A number that changes with every change of the text and never comes back, for callers that remember what they
  /// derived from the text. 0 when the host cannot tell: then nothing may be remembered.
  virtual std::uint64_t Revision() const { return 0; }
};

class CodePane {
 public:
  virtual ~CodePane() = default;

  virtual std::shared_ptr<vbide::CodeModule> CodeModule() const = 0;
  virtual std::shared_ptr<vbide::Window> Window() const = 0;
  virtual Selection GetSelection() const = 0;
  virtual void SetSelection(const Selection& selection) = 0;
  /// Brings the pane forward: it becomes the active one.
  virtual void Show() = 0;
};

class VBComponent {
 public:
  virtual ~VBComponent() = default;

  virtual std::u16string Name() const = 0;
  virtual ComponentType Type() const = 0;
  /// Null for a component without code.
  virtual std::shared_ptr<vbide::CodeModule> CodeModule() const = 0;
  virtual std::shared_ptr<VBComponents> Collection() const = 0;
  /// The first of FileNames: where its code is kept, for the user's eyes. Empty from a host that does not tell.
  virtual std::u16string FileName() const { return {}; }
};

class VBComponents {
 public:
  virtual ~VBComponents() = default;

  virtual std::shared_ptr<VBProject> Parent() const = 0;
  virtual std::vector<std::shared_ptr<VBComponent>> Items() const = 0;  ///< in the host's order
};

class VBProject {
 public:
  virtual ~VBProject() = default;

  virtual std::u16string Name() const = 0;
  virtual std::shared_ptr<vbide::VBComponents> VBComponents() const = 0;
};

class CommandBarControl {
 public:
  virtual ~CommandBarControl() = default;

  virtual void SetCaption(const std::u16string& caption) = 0;
  virtual void SetVisible(bool visible) = 0;
  virtual bool Enabled() const = 0;  ///< false while the host forbids the command
  virtual void Delete() = 0;
};

class CommandBar {
 public:
  virtual ~CommandBar() = default;

  /// Controls.Add; type 1 is a button.
  virtual std::shared_ptr<CommandBarControl> AddControl(std::int32_t type) = 0;
};

class CommandBars {
 public:
  virtual ~CommandBars() = default;

  /// Null when there is no bar of that name.
  virtual std::shared_ptr<CommandBar> Item(std::u16string_view name) = 0;
};

/// Source of the clicks on one control.
class CommandBarEvents {
 public:
  virtual ~CommandBarEvents() = default;

  /// control, handled, cancelDefault
  Event<const std::shared_ptr<CommandBarControl>&, bool&, bool&> Click;
};

class Events {
 public:
  virtual ~Events() = default;

  virtual std::shared_ptr<vbide::CommandBarEvents> CommandBarEvents(
      const std::shared_ptr<CommandBarControl>& control) = 0;
};

/// The host's record of one add-in.
class AddIn {
 public:
  virtual ~AddIn() = default;

  virtual std::u16string ProgId() const = 0;
};

/// How the host came to load an add-in.
enum class ConnectMode : std::int32_t { AfterStartup = 0, Startup = 1, External = 2 };
/// Why the host lets an add-in go.
enum class DisconnectMode : std::int32_t { HostShutdown = 0, UserClosed = 1 };

class VBE;

/// The side of an add-in that the host calls.
class AddInInstance {
 public:
  virtual ~AddInInstance() = default;

  virtual void OnConnection(const std::shared_ptr<VBE>& application, ConnectMode mode,
                            const std::shared_ptr<AddIn>& addIn) = 0;
  virtual void OnDisconnection(DisconnectMode mode) = 0;
};

class Addins {
 public:
  virtual ~Addins() = default;

  /// Raises error 9 when there is no add-in of that ProgID.
  virtual std::shared_ptr<AddIn> Item(std::u16string_view progId) = 0;
};

/// What a tool window hosts, made by ProgID.
class Document {
 public:
  virtual ~Document() = default;
};

class Windows {
 public:
  virtual ~Windows() = default;

  /// `document` becomes the object of `progId` that the new window hosts. Raises when the ProgID is not known.
  virtual std::shared_ptr<Window> CreateToolWindow(const std::shared_ptr<AddIn>& addIn, std::u16string_view progId,
                                                   const std::u16string& caption, std::u16string_view guidPosition,
                                                   std::shared_ptr<Document>& document) = 0;
};

class VBE {
 public:
  virtual ~VBE() = default;

  virtual std::shared_ptr<CodePane> ActiveCodePane() const = 0;    ///< null when there is none
  virtual std::shared_ptr<VBProject> ActiveVBProject() const = 0;  ///< null when there is none
  virtual std::vector<std::shared_ptr<VBProject>> VBProjects() const = 0;
  virtual std::shared_ptr<vbide::CommandBars> CommandBars() = 0;
  virtual std::shared_ptr<vbide::Windows> Windows() = 0;
  virtual std::shared_ptr<vbide::Events> Events() = 0;
  virtual std::shared_ptr<vbide::Addins> Addins() = 0;
  virtual std::shared_ptr<Window> MainWindow() = 0;
};

}  // namespace quorvane::vbide
