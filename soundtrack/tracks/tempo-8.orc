; Step Line - tempo - one bass line walked straight through, rim and vibes keeping step
#include "studio.orc"
piece   "Step Line", 118, "Bb minor"
chords  "A", "Bbm9:4 Ebm9:2 Fm7:2"
chords  "B", "Gbmaj9:2 Ab6:2 Bbm9:4"
form    "AAAABBAABBA", 3
space   "hall", .79, 7000
repeats .75, .35
tape    .15, .4
pump    .3
;       player         pattern                               A A A A B B A A B B A
veil    "hiss",                                             "3 3 3 3 3 3 4 3 3 3 3", -7
wash    "dusk",   60,                                       "3 4 4 4 5 5 5 5 5 5 4", -1
beat    "kick",        "x...x...x...x...",                  "6 7 7 7 7 7 4 7 7 7 6"
beat    "rim",         "....x..x....x...|....x..x....x..o", "4 5 5 5 5 5 4 5 5 5 5", 1, .1, .2
beat    "hat",         "..x...x...x...x.",                  "4 4 5 5 5 5 5 5 5 5 5", 1, -.15
beat    "shaker",      "xoxoxoxoxoxoxoxo",                  ". . 3 4 4 4 3 4 5 4 4", -1, .3
beat    "snare",       "............x...",                  ". . . 4 4 4 . 4 5 5 4", -5, 0, .3
bass    "mono",   34,  "1.1.1.5.7.7.8.5.|1.1.1.3.5.5.7.8.", "4 5 6 6 6 6 4 6 6 6 4", -2
bass    "sub",    34,  "1---............",                  "3 3 3 3 . . . . 3 3 .", -5
stab    "rhodes", 61,  "x-....x-........|x-....x-..x-....", ". . 4 5 5 6 5 5 6 6 4", -2, -.1, .25, .15
keys    "vibes",  68,  "0...1...2...1...|3...1...2...1...", ". 4 4 . 5 5 5 4 5 . 5", -1, .2, .35, .25
tune    "jazz",   70,  "5-----4-3-------|................|1-----2-3-------|................", ". . . . 4 5 . . 5 5 .", 0, -.2, .35, .3
