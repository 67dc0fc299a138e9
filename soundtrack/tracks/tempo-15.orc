; Sharp Cycle - tempo - a broken beat kept on a short lead, low vibes in the gaps
#include "studio.orc"
piece   "Sharp Cycle", 125, "F dorian", 4, .06
chords  "A", "Fm9:4 Ebmaj9:2 Bb9:2"
chords  "B", "Gm7:2 Abmaj9:2 Cm7:2 Fm9:2"
form    "AAABBAABBBA", 2
space   "hall", .81, 8500
repeats .75, .4
tape    .2, .45
pump    .25
;       player           pattern                               A A A B B A A B B B A
veil    "hiss",                                               "3 3 3 3 3 3 4 3 3 3 3", -6
wash    "hollow",   60,                                       "3 4 4 4 5 5 4 4 5 5 4", -1
beat    "kick",          "X.....x...x.....",                  "4 6 7 7 7 7 4 7 7 7 6", 1
beat    "snare",         "....X..o.o..X..o",                  "3 5 6 6 6 6 4 6 6 6 5", 2, 0, .12
beat    "hat",           "x.xox.xox.xox.xo",                  "4 5 5 5 5 5 5 5 5 5 5", 1, .15
beat    "ride",          "x...x...x...x...",                  ". . . 4 5 5 4 5 5 5 4", 0, -.2
beat    "shaker",        "o.oxo.oxo.oxo.ox",                  ". . 3 4 4 4 4 4 4 4 .", 0, .3
bass    "sub",      36,  "1-----1...5---..|1-----1...7-8-..", "3 5 6 6 6 6 4 6 6 6 4", -1
bass    "mono",     36,  "..........1.1...",                  ". . . 5 5 . 4 5 6 5 4", -7
stab    "rhodes",   62,  "x--..x-.........|x--..x-....x--..", "4 4 5 5 5 6 . 5 6 6 5", -1, -.1, .25, .2
keys    "vibes",    67,  "..0..1....2..1..|..0..1....3..2..", ". 4 4 . 5 5 5 4 5 . 5", 0, .2, .35, .3
keys    "pluck",    72,  "0.....1..2......",                  ". . . 4 . 5 . 5 6 6 4", -4, .1, .3, .4
tune    "clarinet", 65,  "5-------3---2---|................|1-------2-------|................", ". . . . 4 . . 5 . 5 .", 0, -.15, .4, .2
