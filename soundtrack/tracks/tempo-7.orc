; Pulse Stack - tempo - layers of plucked pulses stacked to four and taken down again
#include "studio.orc"
piece   "Pulse Stack", 124, "G minor"
chords  "A", "Gm9:2 Bbmaj9:2 Ebmaj9:2 F6:2"
chords  "B", "Cm9:2 Ebmaj9:2 Gm9:2 Dm7:2"
form    "AAABBAABBBA", 3
space   "hall", .85, 8800
repeats .75, .45
tape    .1, .3
pump    .4
;       player          pattern                               A A A B B A A B B B A
wash    "pad",     58,                                       "3 4 4 5 5 6 5 5 5 5 4"
beat    "kick",         "x...x...x...x...",                  "5 7 7 7 7 7 3 7 7 7 6"
beat    "open",         "..x...x...x...x.",                  ". . 3 4 5 5 2 5 5 5 4", -1, -.15
beat    "hat",          "x.xxx.xxx.xxx.xx",                  "4 4 5 5 5 5 4 5 5 5 5", -1, .2
beat    "snare",        "....x.......x...",                  ". . 4 5 5 6 . 5 6 6 6", -3, 0, .2
beat    "rim",          "..x..x....x..x..",                  ". 3 4 4 4 4 4 5 5 5 .", -2, .3, .2
bass    "mono",    36,  "1.1...1.1.1...8.|1.1...1.1.1.5.7.", ". 5 6 6 6 6 . 6 6 6 5", -3
bass    "sub",     36,  "1-------1-------",                  ". . . . . . 5 . . . .", -3
keys    "pluck",   62,  "0...1...2...1...",                  "4 5 5 5 5 4 5 5 5 5 4", -2, -.3, .25, .2
keys    "pluck",   67,  "..0...2...1...3.",                  ". 4 5 5 5 5 5 5 6 6 5", -3, .3, .25, .25
keys    "pluck",   72,  ".0.1.2.0.1.3.0.2",                  ". . 4 . 5 5 4 5 6 6 .", -6, 0, .3, .35
keys    "wire",    62,  "0.0.1.1.2.2.1.1.",                  ". . . 5 5 . . 5 6 6 5", -5, .15, .25, .25
stab    "strings", 62,  "x---------------|----------------", ". . . . 4 . 6 . 5 5 4", -4, 0, .45
