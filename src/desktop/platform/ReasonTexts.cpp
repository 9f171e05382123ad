#include "desktop/platform/ReasonTexts.h"

#include <QRegularExpression>
#include <QStringList>
#include <algorithm>
#include <array>

namespace quorvane::desktop {

namespace {

/// A piece as a whole, and its Chinese words; \1 and \2 stand for what the parentheses took.
struct Words {
  const char* english;
  const char16_t* chinese;
};

constexpr std::array kPieces = {
    // Files
    Words{"No such file or directory", u"没有那个文件或文件夹"},
    Words{"Permission denied", u"权限不够"},
    Words{"Is a directory", u"是一个文件夹"},
    Words{"Not a directory", u"不是文件夹"},
    Words{"No space left on device", u"磁盘已满"},
    Words{"Disk full", u"磁盘已满"},
    Words{"Disk quota exceeded", u"超出磁盘配额"},
    Words{"Read-only file system", u"文件系统是只读的"},
    Words{"Input/output error", u"输入/输出错误"},
    Words{"File name too long", u"文件名过长"},
    Words{"File too large", u"文件过大"},
    Words{"Too many open files", u"打开的文件过多"},
    Words{"Too many levels of symbolic links", u"符号链接的层数过多"},
    Words{"is UTF-16 by its byte order mark; no match will be found in it",
          u"从字节顺序标记看是 UTF-16，其中不会找到任何内容"},
    Words{"not a regular file", u"不是普通文件"},
    Words{"not found", u"未找到"},
    Words{"no project file", u"不是工程文件"},
    Words{"no group file", u"不是工程组文件"},
    Words{"listed twice, opened once", u"列出了两次，只打开一次"},
    Words{"Path/File access error", u"路径/文件访问错误"},
    Words{"cannot be saved", u"无法保存"},
    Words{"it is no longer on disk", u"它已不在磁盘上"},
    Words{"it was changed on disk since it was opened", u"打开之后它在磁盘上已被修改"},
    Words{"it is no plain file", u"它不是普通文件"},
    Words{"it is read-only", u"它是只读的"},
    Words{"it has two different texts", u"它有两种不同的内容"},
    Words{"the folder cannot be flushed", u"文件夹无法写入磁盘"},
    Words{"there is no file to save it in", u"没有可以保存它的文件"},
    Words{"Cannot write (.*)", u"无法写入 \\1"},
    Words{"Cannot save (.*)", u"无法保存 \\1"},
    Words{"(.*); saved", u"\\1；已保存"},
    Words{"(.*); not saved", u"\\1；未保存"},
    Words{"(.*) and (.*) show this file and were edited differently", u"\\1 和 \\2 都显示这个文件，但改动不同"},
    Words{"Line (\\d+), column (\\d+)", u"第 \\1 行，第 \\2 列"},
    Words{"code page (\\S+) has no character (.*)", u"代码页 \\1 中没有字符 \\2"},
    // Patterns
    Words{"Invalid pattern string", u"模式字符串无效"},
    Words{"Syntax error in regular expression", u"正则表达式语法错误"},
    Words{"Expected '\\)' in regular expression", u"正则表达式中缺少 ')'"},
    Words{"Expected '\\]' in regular expression", u"正则表达式中缺少 ']'"},
    Words{"Unexpected quantifier", u"多余的数量符"},
    Words{"Invalid range in character set", u"字符集中的范围无效"},
    Words{"look-behind is not known", u"不支持后行断言"},
    Words{"unknown group", u"未知的分组"},
    Words{"unmatched '\\)'", u"多余的 ')'"},
    Words{"number too big in \\{\\}", u"{} 中的数字过大"},
    Words{"numbers out of order in \\{\\}", u"{} 中的数字次序颠倒"},
    Words{"\\\\ at end of pattern", u"表达式以 \\\\ 结尾"},
    Words{"regular expression is too large", u"正则表达式过大"},
    Words{"The regular expression takes too long or too much memory on this text",
          u"正则表达式在这段文本上耗时过长或占用内存过多"},
    // Stylesheets
    Words{"Opening and ending tag mismatch", u"开始标记与结束标记不匹配"},
    Words{"Premature end of data in tag (\\S+) line (\\d+)", u"标记 \\1（第 \\2 行）没有结束"},
    Words{"Start tag expected, '<' not found", u"应为开始标记，却没有 '<'"},
    Words{"Extra content at the end of the document", u"文档末尾有多余的内容"},
    Words{"Document is empty", u"文档为空"},
    Words{"StartTag", u"开始标记"},
    Words{"invalid element name", u"元素名称无效"},
    Words{"error parsing attribute name", u"属性名称有误"},
    Words{"attributes construct error", u"属性写法有误"},
    Words{"Couldn't find end of Start Tag (\\S+) line (\\d+)", u"开始标记 \\1（第 \\2 行）没有结束"},
    Words{"AttValue", u"属性值"},
    Words{"\" or ' expected", u"缺少引号"},
    Words{"Unescaped '<' not allowed in attributes values", u"属性值中的 '<' 必须转义"},
    Words{"\\w+ mandates? value for attribute (\\S+)", u"属性 \\1 缺少值"},
    Words{"expected '>'", u"缺少 '>'"},
    Words{"EntityRef", u"实体引用"},
    Words{"expecting ';'", u"缺少 ';'"},
    Words{"Entity '(.*)' not defined", u"实体 \\1 未定义"},
    Words{"Namespace prefix (\\S+) on (\\S+) is not defined", u"\\2 的命名空间前缀 \\1 未定义"},
    Words{"Attribute (\\S+) redefined", u"属性 \\1 重复"},
    Words{"the stylesheet is not well-formed", u"样式表的格式不正确"},
    // Whatever else the platform says
    Words{"Invalid procedure call or argument", u"无效的过程调用或参数"},
    Words{"Overflow", u"溢出"},
    Words{"Out of memory", u"内存不足"},
    Words{"Out of stack space", u"堆栈空间不足"},
    Words{"Subscript out of range", u"下标越界"},
    Words{"Type mismatch", u"类型不匹配"},
    Words{"Internal error", u"内部错误"},
    Words{"Invalid file format", u"文件格式无效"},
    Words{"Sub or Function not defined", u"子程序或函数未定义"},
};

QString ChinesePiece(const QString& piece) {
  static const auto known = [] {
    std::array<QRegularExpression, kPieces.size()> made;
    std::ranges::transform(kPieces, made.begin(), [](const Words& words) {
      return QRegularExpression(QRegularExpression::anchoredPattern(QLatin1String(words.english)));
    });
    return made;
  }();
  for (std::size_t i = 0; i < known.size(); ++i) {
    if (known[i].match(piece).hasMatch())
      return QString(piece).replace(known[i], QString::fromUtf16(kPieces[i].chinese));
  }
  return piece;
}

/// Where it happened stands at the end of a line.
QString ChineseLine(QString line) {
  static const QRegularExpression offset(QStringLiteral(" at offset (\\d+)$"));
  static const QRegularExpression number(QStringLiteral(" \\(line (\\d+)\\)$"));
  QString place;
  for (const auto& [found, words] : {std::pair(offset.match(line), QStringLiteral("（位置 %1）")),
                                     std::pair(number.match(line), QStringLiteral("（第 %1 行）"))}) {
    if (!found.hasMatch()) continue;
    place = words.arg(found.captured(1));
    line.truncate(found.capturedStart());
  }
  QStringList pieces = line.split(QStringLiteral(": "));
  for (QString& piece : pieces) piece = ChinesePiece(piece);
  return pieces.join(QStringLiteral(": ")) + place;
}

}  // namespace

QString ChineseReason(const QString& english) {
  QStringList lines = english.split(QLatin1Char('\n'));
  for (QString& line : lines) line = ChineseLine(line);
  return lines.join(QLatin1Char('\n'));
}

}  // namespace quorvane::desktop
