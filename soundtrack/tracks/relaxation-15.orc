; Low Horizon - relaxation - flat land in three: hammered strings near, a horn and a cello under a wide sky
#include "studio.orc"
piece   "Low Horizon", 70, "E mixolydian", 3
chords  "A", "Eadd9:2 Bm7/E:2 D6:2 A/E:2"
chords  "B", "Bm7:2 D6:2 F#m7:2 Asus2:2"
chords  "C", "C#m7:2 Amaj9:2 F#m7:2 Bm7:2"
chords  "I", "Eadd9:4"
chords  "Z", "D6/E:2 A/E:2 Eadd9:4"
form    "IAABACBAZ", 4
space   "hall", .89, 6800
repeats 1, .4
tape    .25, .1
;       player          pattern                                                      I A A B A C B A Z
veil    "leaves",                                                                  "4 4 3 4 3 3 3 4 4", -4, -.15
veil    "wind",                                                                    "3 3 3 3 3 4 3 3 3", -2
wash    "strings",  57,                                                            "3 3 4 4 . 4 5 4 3", -2
wash    "drift",    57,                                                            "3 3 . 3 5 4 4 . 3", -3
wash    "choir",    57,                                                            ". . . . . 3 3 . .", -4
bass    "sub",      40, "1-----|----..|1-----|..5---",                             ". 3 3 4 4 4 4 3 .", -5
bass    "cello",    40, "1-----|--5---|1-----|......",                             ". . . 4 . 5 4 . 3", -4
keys    "dulcimer", 64, "0.2.1.|3...2.|0.1.2.|......",                             "3 4 . . 4 . . 4 3", -2, .2, .3, .2
keys    "dulcimer", 64, "0.1.3.|4.3.1.|0.2.1.|..3...",                             ". . 4 5 . . 5 . .", -2, .2, .3, .2
keys    "nylon",    60, "0.....|..1...|0...2.|......",                             ". . . . 4 4 4 . .", -2, -.25, .35
tune    "horn",     64, "5-----|3-----|......|......|4-----|2-----|......|......", ". . . . 4 . . . .", 2.5, -.2, .55
tune    "horn",     64, "3-----|5-----|......|......|6-----|8-----|......|5-----", ". . . . . 6 . . .", 2.5, -.2, .55
tune    "cello",    52, "5---4-|2-----|......|......|6---5-|1-----|......|......", ". . . 4 . . 5 . .", 1.5, .1, .5
tune    "cello",    52, "......|......|1-----|......|......|e-----|1-----|......", ". . . . . . . 4 .", 1.5, .1, .5
