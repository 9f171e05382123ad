<xsl:stylesheet version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>
  <xsl:output method='text'/>
  <!-- Comma-separated values; quotes inside of a field are doubled. -->
  <xsl:template match='MatchItem'>
    <xsl:value-of select='concat(@ProjectName, ",", @ComponentName, ",", @ProcName, ",", @Y1, ",", @X1)'/>
    <xsl:text>,"</xsl:text>
    <xsl:call-template name='doubled'>
      <xsl:with-param name='text' select='@Line'/>
    </xsl:call-template>
    <xsl:text>"</xsl:text>
  </xsl:template>
  <xsl:template name='doubled'>
    <xsl:param name='text'/>
    <xsl:choose>
      <xsl:when test='contains($text, &apos;"&apos;)'>
        <xsl:value-of select='concat(substring-before($text, &apos;"&apos;), &apos;""&apos;)'/>
        <xsl:call-template name='doubled'>
          <xsl:with-param name='text' select='substring-after($text, &apos;"&apos;)'/>
        </xsl:call-template>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select='$text'/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>
</xsl:stylesheet>
