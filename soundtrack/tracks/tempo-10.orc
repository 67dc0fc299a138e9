; Workstream - tempo - round fretless bass and electric piano, an office with good light
#include "studio.orc"
piece   "Workstream", 112, "C dorian", 4, .14
chords  "A", "Cm9:2 F9:2 Bbmaj9:2 Ebmaj9:2"
chords  "B", "Gm9:2 F6:2 Ebmaj9:2 Dm7:2"
form    "AAABBAABBA", 2
space   "hall", .78, 7200
repeats .75, .3
tape    .2, .4
pump    .25
;       player           pattern                               A A A B B A A B B A
veil    "hiss",                                               "3 3 3 3 3 3 3 3 3 3", -7
wash    "pad",      61,                                       "2 3 4 5 5 5 5 5 5 4", -2
beat    "thud",          "x...x...x...x..o",                  "2 6 7 7 7 2 7 7 7 6"
beat    "snare",         "....x.......x...",                  ". 4 5 5 5 3 5 6 6 5", -2, 0, .15
beat    "hat",           "x.xox.xox.xox.xo",                  "4 4 5 5 5 4 5 5 5 5", 0, -.15
beat    "shaker",        "o.x.o.x.o.x.o.xo",                  ". . 4 5 5 4 5 5 5 5", 1, .3
beat    "rim",           "......x..x......|......x..x....x.", ". . 4 4 4 4 4 5 5 .", -2, -.3, .2
bass    "fretless", 36,  "1-..1.5-..8-7...|1-..1.5-..3-5.7.", "4 5 6 6 6 5 6 6 6 4", 1
bass    "sub",      36,  "1---....1---....",                  "2 3 3 3 . . . 3 3 3", -5
stab    "rhodes",   62,  "x--...x-....x-..|..x-..x-..x--...", "4 5 5 5 6 5 5 6 6 5", -1, -.1, .25, .15
keys    "rhodes",   69,  "..0..1....2..1..",                  ". . . 4 . 5 . 5 5 .", -3, .15, .3, .3
stab    "muted",    67,  "....x-......x-..",                  ". . 4 4 5 3 5 5 5 4", -4, .3, .2, .2
tune    "vibes",    72,  "....5--3..1-....|................|....4--2..5-....|................", ". . . 4 . 5 . 5 5 .", 2, .1, .35, .3
