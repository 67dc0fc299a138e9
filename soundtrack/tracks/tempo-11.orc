; Quick Relay - tempo - thumb pianos passing one short word back and forth
#include "studio.orc"
piece   "Quick Relay", 124, "A mixolydian", 4, .05
chords  "A", "Aadd9:2 G6:2 Dadd9/F#:2 Em7:2"
chords  "B", "Bm7:2 G6:2 Dadd9:2 Em7:2"
form    "AAABBAABBBA", 3
space   "hall", .82, 9500
repeats .75, .4
tape    .1, .25
pump    .3
;       player           pattern                               A A A B B A A B B B A
veil    "air",                                                "3 3 3 3 3 3 3 3 3 3 3", -6
wash    "pad",      61,                                       "3 4 4 4 5 5 4 4 5 5 4", -1
beat    "kick",          "x...x...x...x...",                  "5 6 7 7 7 7 3 7 7 7 6"
beat    "hat",           "..x...x...x...x.",                  "4 4 5 5 5 5 5 5 5 5 5", 0, .15
beat    "shaker",        "oxoXoxoXoxoXoxoX",                  ". . 4 5 5 4 5 5 5 5 .", 1, -.25
beat    "clap",          "....x.......x...",                  ". . . 5 5 4 6 5 6 5 .", -1, 0, .2
beat    "block",         "..x..x..o..x....",                  ". 3 4 4 4 4 4 5 5 5 4", -3, .3, .2
bass    "mono",     33,  "1..1....1..1..5.|1..1....5..7.8..", ". 5 5 6 6 6 4 6 6 6 5", -5
bass    "sub",      33,  "1---1---1---1---",                  "3 4 4 4 4 4 . 4 4 4 4", -5
keys    "kalimba",  67,  "0.1.2...........|0.1.3...........", "4 5 5 . 5 . 5 . . 5 4", 1, -.35, .25, .3
keys    "kalimba",  67,  "........2.1.0...|........3.1.2...", "4 5 5 . 5 . 5 . . 5 4", 1, .35, .25, .3
keys    "kalimba",  67,  "0.12..0.21..3.1.",                  ". . . 5 . 5 . 6 6 6 .", 0, -.2, .25, .3
keys    "dulcimer", 69,  "....0.....1.....",                  ". . 4 . 4 5 . 5 5 5 4", -2, .2, .3, .3
stab    "organ",    62,  "x---....x---....",                  ". . . 4 4 5 4 6 5 5 4", -4, 0, .3, .1
tune    "vibes",    73,  "5-----3-2-------|................|3-----2-1-------|................", ". . . . 4 . 5 . . 5 .", 1, .1, .4, .3
