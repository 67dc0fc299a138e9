; Quick Relay - tempo - thumb pianos passing one short word back and forth, six beats to the bar, palms on wood
#include "studio.orc"
piece   "Quick Relay", 122, "A mixolydian", 6
chords  "A", "Aadd9:2 G6:1 Dadd9/F#:1 Em7:2"
chords  "B", "Bm7:1 Em7:1 G6:2 Dadd9:2"
chords  "C", "Dadd9:2 F#m7:1 Em7:1 G6:2"
chords  "Z", "Aadd9:4"
form    "AABACABCAZ", 2
space   "hall", .8, 9500
repeats 1.5, .4
tape    .1, .5
pump    .2
stray   .06
;       player          pattern                                                 A A B A C A B C A Z
veil    "air",                                                                 "3 3 3 3 3 3 3 3 3 3", -9
wash    "glass",    64,                                                        "3 3 4 3 5 3 4 5 4 3", 0
beat    "grain",        "x.o.o.x.o.o.",                                        "2 3 3 3 3 4 4 4 3 2", 0, -.3
beat    "djembe",       "x.....x.....|x.....x...o.|x.....x.....|x..o..x.o.oo", ". 3 4 5 3 5 6 4 5 .", -3, .1, .15
beat    "feltkick",     "..x.x...x.x.",                                        ". . 3 4 . 4 5 3 4 .", -3
beat    "tick",         "....o.....o.",                                        ". . 3 3 3 3 4 4 3 .", -3, .3, .2
beat    "conga",        "...o....x..o|...o....xo..",                           ". . . 3 . 4 4 3 4 .", -3, .3, .15
beat    "shaker",       "..o.x...o.x.",                                        ". . . . . 3 3 . 3 .", -4, .25
bass    "rubber",   33, "1-..1.1-..5.|1-..1.1-..8.",                           ". 4 5 5 . 5 6 . 5 .", -3
bass    "sub",      33, "1-----1---..|1-----5-----",                           "3 . . . 6 . . 6 . 3", -2
keys    "kalimba",  67, "0.1.2.......|0.1.3.......",                           "4 5 5 4 5 5 5 4 5 4", -2, -.4, .25, .3
keys    "kalimba",  67, "......2.1.0.|......3.1.2.",                           ". 4 5 5 4 5 5 5 5 .", -2, .4, .25, .3
keys    "kalimba",  72, "..0..1..2..1|..0..1..3..2",                           ". . . 4 . . 4 5 4 .", -4, 0, .25, .3
keys    "marimba",  62, "0..1..2..1..|0..1..2..3..",                           ". . 4 . 4 4 5 . 5 .", -4, .15, .25, .2
keys    "dulcimer", 69, "0...........|....1.......",                           ". . . . 4 . 4 4 . 3", -3, -.1, .35, .3
tune    "hang",     69, "5-----3-----|............|............|2-----1-----|............|............", ". . . 4 . . 4 . 5 .", -1, -.05, .4, .3
tune    "hang",     69, "............|............|3-----------|............|............|2-----1-----", ". . 4 . 5 . . 5 . .", -1, .1, .4, .3
