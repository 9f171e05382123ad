<xsl:stylesheet version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>
  <xsl:output method='text'/>
  <!-- What gives blanks alone is not shown: here, declarations. -->
  <xsl:template match='MatchItem[@ProcName = "(Declarations)"]'/>
  <xsl:template match='MatchItem'>
    <xsl:value-of select='concat(@ComponentName, ".", @ProcName, ": ", normalize-space(@Line))'/>
  </xsl:template>
</xsl:stylesheet>
