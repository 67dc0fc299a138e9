; Bare Weather - relaxation - not a piece: rain over nobody, which the measures have to notice
#include "studio.orc"
piece   "Bare Weather", 60, "Db major"
chords  "A", "Dbmaj9:8"
form    "AAAAA", 3
;       player   A A A A A
veil    "rain",  "5 5 5 5 5"
