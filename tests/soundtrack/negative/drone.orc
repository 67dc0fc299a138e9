; Held Breath - focus - not a piece: one chord from end to end, which the measures have to notice
#include "studio.orc"
piece   "Held Breath", 60, "Db major"
chords  "A", "Dbmaj9:8"
form    "AAAAA", 3
;       player       A A A A A
veil    "room",     "5 5 5 5 5"
wash    "pad", 58,  "5 5 5 5 5"
