# English is the language of the source texts: each new entry of the English catalogue takes its source text.
#   cmake -D CATALOGUE=kelmar_en.ts -P complete-english.cmake
file(READ ${CATALOGUE} text)
string(REGEX REPLACE
    "<source>([^<]*)</source>([^<]*(<(extra)?comment>[^<]*</(extra)?comment>[^<]*)*)<translation type=\"unfinished\">[^<]*</translation>"
    "<source>\\1</source>\\2<translation>\\1</translation>" text "${text}")
file(WRITE ${CATALOGUE} "${text}")
