<xsl:stylesheet version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>
  <xsl:output method='text'/>
  <!-- A heading where another procedure begins, and the lines of its matches below. -->
  <xsl:template match='MatchItem'>
    <xsl:variable name='before' select='preceding-sibling::MatchItem[1]'/>
    <xsl:if test='not($before/@ComponentName = @ComponentName and $before/@ProcName = @ProcName)'>
      <xsl:value-of select='concat(@ProjectName, ".", @ComponentName, ".", @ProcName, "&#10;")'/>
    </xsl:if>
    <xsl:value-of select='concat("  ", @Y1, ": ", normalize-space(@Line))'/>
  </xsl:template>
</xsl:stylesheet>
