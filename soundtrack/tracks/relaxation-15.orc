; Low Horizon - relaxation - flat land in three, hammered strings and a cello under a wide sky
#include "studio.orc"
piece   "Low Horizon", 70, "E mixolydian", 3
chords  "A", "Eadd9:4 D6:2 A/E:2"
chords  "B", "Bm7:2 D6:2 F#m7:2 Asus2:2"
chords  "Z", "Eadd9:4"
form    "AABAABABZ", 4
space   "hall", .89, 6800
repeats 1, .4
tape    .25, .1
;       player           pattern           A A B A A B A B Z
veil    "leaves",                         "5 5 4 5 4 5 4 5 5", 2, -.15
veil    "wind",                           "4 4 3 4 3 4 3 4 4", 1
wash    "strings",  57,                   "2 3 3 3 4 4 5 4 3", -1
wash    "pad",      54,                   "3 3 3 3 3 4 4 4 3", -2
bass    "cello",    40,  "1-----|--5---", ". . 4 4 5 5 5 5 3", -2
bass    "sub",      40,  "1-----|----..", "3 3 . . . . . . .", -4
keys    "dulcimer", 64,  "0.2.1.|3...2.", "4 5 . 5 5 . 5 . 4", -1, .2, .3, .2
keys    "dulcimer", 64,  "0.1.3.|4.3.1.", ". . 5 . . 6 . 6 .", -1, .2, .3, .2
tune    "cello",    52,  "5-----|3-----|2-----|1-----|4-----|2-----|3-----|1-----", ". . . 5 . . 5 . .", 1, -.2, .45
tune    "horn",     64,  "5-----|4-----|4-----|3-----|2---1-|4-----|5-----|4-----", ". . 3 . . 5 . 6 .", 0, -.3, .5
