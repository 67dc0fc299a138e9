; Copied Bar - focus - not a piece: the same four bars sixteen times, which the measures have to notice
#include "studio.orc"
piece   "Copied Bar", 90, "D minor"
chords  "A", "Dm9 Bbmaj7 Fadd9/A C"
form    "AAAAAAAAAAAAAAAA", 3
;       player       pattern      A A A A A A A A A A A A A A A A
wash    "pad",  58,              "5 5 5 5 5 5 5 5 5 5 5 5 5 5 5 5"
keys    "felt", 62,  "0.1.2.3.", "5 5 5 5 5 5 5 5 5 5 5 5 5 5 5 5"
bass    "sub",  36,  "1------.", "5 5 5 5 5 5 5 5 5 5 5 5 5 5 5 5"
