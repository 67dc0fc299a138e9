; Soft Prism - creative - one chord bent into colours: bells, hollow pipes and a cello
#include "studio.orc"
piece   "Soft Prism", 80, "Db lydian"
chords  "A", "Dbmaj9:2 Eb/Db:2 Cm7:2 Fm9:2"
chords  "B", "Bbm9:2 Fm7:2 Ebadd9:2 Dbmaj9#11:2"
chords  "Z", "Dbmaj9:4"
form    "AABABAAZ", 3
space   "hall", .93, 8800
repeats .75, .5
tape    .25, .1
;       player           pattern               A A B A B A A Z
veil    "air",                                "3 3 4 4 3 4 4 3", -2
wash    "hollow",   60,                       "3 4 4 5 5 6 5 3"
wash    "glass",    68,                       ". . 3 3 4 4 4 3", -1
wash    "strings",  56,                       ". . . 4 5 6 3 .", -1
bass    "sub",      37,  "1-------|------..", ". 3 4 4 5 5 4 3", -3
bass    "fretless", 37,  "1-----5-|....8...", ". . . 4 . 5 . .", -5
keys    "bell",     68,  "0..2..1.|..3.....", "4 4 . 5 . 5 4 .", 0, .2, .4, .3
keys    "bell",     68,  "0.2.3.1.|4.2.....", ". . 5 . 6 . . .", 0, .2, .4, .3
keys    "felt",     63,  "..1...2.|....0...", ". 4 4 . 5 5 . 4", -1, -.15, .35, .2
tune    "cello",    56,  "5-----3-|5-------|2-----4-|2-------|7-----5-|7-------|3-----5-|3-------", ". . . 5 . 4 . .", 1, -.2, .45
tune    "cello",    61,  "6-----8-|6-------|5-----3-|5-------|2-----4-|2-------|1---3---|5-------", ". . . . 6 . . .", 1, -.2, .45
tune    "celesta",  73,  "....5-3-|........|....4-2-|........|....5-7-|........|....5-3-|........", ". . 4 . . 5 4 .", 0, .3, .45, .35
