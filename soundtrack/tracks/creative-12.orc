; Sketch Field - creative - guitar and hammered strings drawing the same line twice
#include "studio.orc"
piece   "Sketch Field", 82, "C major"
chords  "A", "Cadd9:2 G/B:2 Am7:2 Fmaj9:2"
chords  "B", "Dm9:2 Am7:2 Fmaj9:2 Gsus4 G"
chords  "Z", "Fmaj9:2 Cadd9:2"
form    "AABABAAZ", 3
space   "hall", .86, 7200
repeats .75, .35
tape    .2, .1
;       player           pattern               A A B A B A A Z
veil    "leaves",                             "3 3 3 3 3 3 3 3", -3
wash    "pad",      60,                       "2 3 3 4 5 5 4 3", -1
wash    "strings",  57,                       ". . 2 3 . 5 3 2", -1
bass    "nylon",    43,  "1---5---|8---5---", "4 4 . 5 . 5 4 .", -3, -.1
bass    "fretless", 36,  "1-----..|1---5---", ". . 4 4 5 6 5 4", -3
keys    "nylon",    62,  "..0.1.2.|..3.2.1.", "4 5 5 . . 5 5 .", -2, -.25, .3, .1
keys    "nylon",    62,  "0.2.1.3.|2.4.3.1.", ". . 5 5 . 6 . .", -2, -.25, .3, .1
keys    "dulcimer", 67,  "0..2..1.|........", ". 4 . 5 5 . 5 4", -3, .25, .35, .2
beat    "shaker",        "o...o...o.o.o...",  ". . . 3 4 4 3 .", -2, .2
tune    "jazz",     67,  "5---3---|2---....|2---5---|4---....|3---1---|5---....|6---5---|3---....", ". 4 . 5 . . 5 .", 0, .15, .35, .2
tune    "flute",    72,  "4-----6-|5-------|3-----5-|3-------|6-----5-|3-------|4-----5-|2-------", ". . 4 . 5 . . .", 0, -.1, .45, .1
tune    "vibes",    72,  "5-------|........|2-------|........|1-------|........|3-------|........", ". . . . . 5 . 4", 1, .1, .45, .3
