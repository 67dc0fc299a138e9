; Inbox Motion - tempo - organ chords that answer each other, a hat that never looks up
#include "studio.orc"
piece   "Inbox Motion", 120, "C minor", 4, .06
chords  "A", "Cm9:2 Fm9:2 Cm9:2 Bb9sus:2"
chords  "B", "Abmaj9:2 Bb6:2 Gm7:2 Cm9:2"
form    "AAABBAABBBA", 2
space   "hall", .8, 9000
repeats .75, .35
tape    .1, .35
pump    .4
;       player         pattern                               A A A B B A A B B B A
wash    "hollow", 60,                                       "3 4 4 5 5 5 4 4 5 5 4", -2
beat    "kick",        "x...x...x...x...",                  "3 6 7 7 7 7 2 7 7 7 6"
beat    "open",        "..x...x...x...x.",                  ". 3 4 5 5 . 3 5 5 5 4", -2, .1
beat    "hat",         "xoxoxoxoxoxoxoxo",                  ". 4 5 5 5 5 5 5 5 5 5", -1, -.15
beat    "clap",        "....x.......x...",                  ". . 5 6 6 2 6 6 6 6 .", 0, 0, .2
beat    "block",       "...o......o..o..",                  ". . 4 4 4 4 4 5 5 5 .", -3, .35, .2
bass    "mono",   36,  "1..1..1...1.8...|1..1..1...5.7...", ". 5 6 6 6 6 . 6 6 6 5", -3
bass    "sub",    36,  "1-------1-------",                  "2 . . . . . 3 . . . .", -3
stab    "organ",  62,  "..x...x....x....|..x...x..x.x....", "3 4 5 6 6 4 5 6 6 6 4", -2, -.1, .25, .2
stab    "chord",  67,  "......x-........|..........x-....", ". . . 5 5 . . 5 6 6 5", -4, .25, .35, .35
keys    "wire",   72,  "0..1..2..0..1..3",                  ". . 4 . 5 4 . . 5 6 5", -7, .2, .3, .4
tune    "vibes",  72,  "5---....3---....|................|1---....4---....|................", ". . . . 4 . 5 . . 5 .", 1, -.1, .4, .3
