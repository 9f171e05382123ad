<xsl:stylesheet version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>
  <xsl:output method='html'/>
  <!-- One row of an HTML table a match, the match marked. -->
  <xsl:template match='MatchItem'>
    <tr><td><xsl:value-of select='@ProjectName'/>.<xsl:value-of select='@ComponentName'/></td><td><xsl:value-of select='@ProcName'/></td><td><xsl:value-of select='@Y1'/></td><td><code><xsl:value-of select='substring(@Line, 1, @X1 - 1)'/><mark><xsl:value-of select='@MatchStr'/></mark><xsl:value-of select='substring(@Line, @X1 + string-length(@MatchStr))'/></code></td></tr>
  </xsl:template>
</xsl:stylesheet>
