<xsl:stylesheet version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>
  <xsl:output method='text'/>
  <!-- Links of Markdown, for modules whose files have their names. A match knows its module, not its file. -->
  <xsl:template match='MatchItem'>
    <xsl:value-of select='concat("- [", @ComponentName, ":", @Y1, "](", @ComponentName, ".bas#L", @Y1, ") `",
                                 normalize-space(@Line), "`")'/>
  </xsl:template>
</xsl:stylesheet>
