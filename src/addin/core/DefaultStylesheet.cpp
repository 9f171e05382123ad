#include "addin/core/DefaultStylesheet.h"

namespace quorvane {

std::u16string_view DefaultStylesheet() {
  return u"<?xml version='1.0' encoding='gb2312'?>\r\n"
         u"<xsl:stylesheet version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>\r\n"
         u"    <xsl:output omit-xml-declaration='yes' />\r\n"
         u"    <xsl:template match='MatchItem'>\r\n"
         u"        <xsl:value-of select='@ProjectName' />\r\n"
         u"        <xsl:text>\\</xsl:text>\r\n"
         u"        <xsl:value-of select='@ComponentName' />\r\n"
         u"        <xsl:text>\\</xsl:text>\r\n"
         u"        <xsl:value-of select='@ProcType' />\r\n"
         u"        <xsl:text>\\</xsl:text>\r\n"
         u"        <xsl:value-of select='@ProcName' />\r\n"
         u"        <xsl:text>[</xsl:text>\r\n"
         u"        <xsl:value-of select='@Y1' />\r\n"
         u"        <xsl:text>,</xsl:text>\r\n"
         u"        <xsl:value-of select='@X1' />\r\n"
         u"        <xsl:text>]</xsl:text>\r\n"
         u"        <xsl:value-of disable-output-escaping='yes' select='@Line' />\r\n"
         u"    </xsl:template>\r\n"
         u"</xsl:stylesheet>\r\n";
}

}  // namespace quorvane
