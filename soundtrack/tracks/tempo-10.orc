; Workstream - tempo - fretless bass and electric piano over half-time brushes, a guitar that swells in, an office with good light
#include "studio.orc"
piece   "Workstream", 112, "C dorian", 4, .14
chords  "I", "Cm9:4 Ebmaj9:2 F9:2"
chords  "A", "Cm9:2 F9:2 Bbmaj9:2 Ebmaj9:2"
chords  "B", "Gm9:2 F6:2 Ebmaj9:2 Dm7:2"
chords  "C", "Ebmaj9:2 Dm7:2 Cm9:2 Gm9/Bb:2"
chords  "Z", "Cm9:4"
form    "IABACABCBAZ", .8
space   "plate", .66, 5800
repeats .75, .3
tape    .25, .35
pump    .2
;       player          pattern                                                                     I A B A C A B C B A Z
veil    "hiss",                                                                                    "3 3 3 3 3 3 3 3 3 3 3", -8
wash    "swell",    62,                                                                            "2 3 4 4 5 4 5 6 5 3 3", -1
beat    "brush",        "....o.......o..o|....o.......o...",                                       "2 3 4 4 4 4 5 4 5 3 3", 0, .15, .15
beat    "thud",         "x......x..x.....|x......x..x....o|x......x..x.....|x..o...x..x..o..",     ". 3 5 5 3 6 6 4 6 3 .", 1
beat    "snare",        "........x.......|........x......o|........x.......|..o.....x..o..oo",     ". . 4 4 3 4 5 3 5 . .", -4, 0, .25
beat    "hat",          "x.xox.xox.xox.xo",                                                        ". . 2 3 . 3 3 . 4 . .", -4, -.2
beat    "softride",     "x...x...x...x...",                                                        ". . . . 3 . 4 3 4 . .", -4, .3
beat    "shaker",       "..x...x...x...x.",                                                        ". 3 3 3 4 3 4 4 4 3 2", -2, .3
beat    "rim",          "......o....o....|......o..o....x.",                                       ". . . 3 3 3 4 3 4 . .", -4, -.3, .25
bass    "fretless", 36, "1-..1.5-..8-7...|1-..1.5-..3-5.7.|1-..1.5-..8-7...|1-..1.8-..5-..3-",     ". 5 5 6 . 6 6 . 6 5 .", 1
bass    "fretless", 36, "1---......5-....|1-----..3---5---",                                       "4 . . . 5 . . 6 . . 4", 1
bass    "sub",      36, "1---....1---....",                                                        ". . 3 3 . 3 3 4 4 . .", -5
stab    "rhodes",   62, "x--...x-....x-..|..x-..x-..x--...|x--...x-..x-....|..x--...........",     "3 4 5 5 . 5 6 4 6 4 4", -1, -.15, .25, .15
keys    "rhodes",   64, "*.......|........|......*.|........",                                     "3 . . . 5 . . 5 . . 4", -2, -.1, .3, .25
stab    "muted",    67, "....x-......x-..|....x-....x.x...",                                       ". . 4 4 . 4 5 4 5 . .", -5, .35, .2, .2
keys    "celesta",  74, "0.....1.|........|....2...|........",                                     ". . . . 3 . . 4 4 . .", -6, .2, .4, .35
tune    "clarinet", 67, "........|....5---|3-------|........|........|....4---|2-------|........", ". . 4 . . . 5 . 5 . .", -1, .1, .35, .2
