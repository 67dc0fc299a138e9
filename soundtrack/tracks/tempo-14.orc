; Light Motor - tempo - a soft kick with a pillow in it, felt piano chopped small
#include "studio.orc"
piece   "Light Motor", 115, "Eb major", 4, .1
chords  "A", "Ebmaj9:2 Fm9:2 Gm7:2 Abmaj9:2"
chords  "B", "Cm9:2 Abmaj9:2 Fm9:2 Bb9sus:2"
form    "AAABBAABBA", 3
space   "hall", .82, 6500
repeats .75, .35
tape    .3, .35
pump    .3
;       player           pattern                               A A A B B A A B B A
veil    "hiss",                                               "3 3 3 3 3 3 3 3 3 3", -6
wash    "pad",      61,                                       "3 4 4 4 5 5 5 5 5 4", -1
wash    "glass",    68,                                       ". . . 3 3 . 3 4 4 3", -4
beat    "thud",          "x...x...x...x...",                  "5 6 7 7 7 4 7 7 7 6"
beat    "brush",         "....x.......x..o",                  ". . 4 5 5 4 5 5 5 5", 2, .1, .15
beat    "shaker",        "..o...x...o...x.",                  "4 4 5 5 5 5 5 5 5 5", 2, -.25
beat    "hat",           "o.oxo.oxo.oxo.ox",                  ". . 3 4 4 3 4 4 4 4", -2, .2
beat    "rim",           "..........x.....",                  ". . . 4 4 5 4 4 5 5", -3, -.3, .25
bass    "sub",      36,  "1-..1-..1-....5-|1-..1-..5-..3-..", ". 5 6 6 6 5 6 6 6 4", -2
bass    "fretless", 36,  "..1...1...1...1.",                  ". . . 5 5 . . 5 5 .", -5
stab    "felt",     62,  "x-....x-..x-....|..x-..x-....x-..", "4 5 5 5 6 5 5 6 6 5", -2, -.1, .25, .2
keys    "felt",     70,  "..0...1...2...1.",                  ". . 4 . 5 5 . 5 5 .", -2, .2, .3, .3
keys    "celesta",  74,  "0.....1.........",                  ". . . 4 4 . 4 5 5 4", -3, .25, .4, .3
tune    "felt",     75,  "5---3---2-------|................|5---4---3-------|................", ". . . 4 . 5 . 5 5 .", 1, .1, .4, .3
