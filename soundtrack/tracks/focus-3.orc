; Quiet Scope - focus - an even signal on a dim screen, organ and a tiny sequence
#include "studio.orc"
piece   "Quiet Scope", 84, "G dorian"
chords  "A", "Gm9:2 C6/G:2 Gm9:2 Fadd9:2"
chords  "B", "Bbmaj9:2 C6:2 Dm7:2 Gm9:2"
chords  "Z", "Gm9:4"
form    "AABABAAZ", 4
space   "hall", .84, 5200
repeats .75, .45
tape    .2, .25
;       player        pattern               A A B A B A A Z
veil    "room",                            "4 4 4 4 4 4 4 4", -2
veil    "hiss",                            "3 3 3 3 3 3 3 3", -5
wash    "organ", 58,                       "3 4 4 5 5 4 4 3", -3, 0, .4
wash    "dusk",  55,                       ". 3 3 4 4 4 3 3", -1
bass    "sub",   36,  "1---1---|1-----..", ". 4 4 5 5 5 4 3", -3
bass    "mono",  43,  "1.......|....5...", ". . 4 4 5 5 4 .", -8
keys    "wire",  67,  "0...1...2...1...",  "4 4 . 5 . 5 4 4", -4, -.2, .3, .3
keys    "wire",  67,  "0..1..2..3..2..1",  ". . 5 . 6 . 5 .", -5, .2, .3, .3
beat    "block",      "....o.......o...",  ". . 3 4 4 4 3 .", -4, .3, .2
tune    "vibes", 67,  "5-------|........|6-------|5-------|........|........|4---2---|........", ". . 4 . . 5 . .", 1, .15, .45, .3
tune    "vibes", 67,  "3---2---|1-------|6---4---|3-------|5---4---|2-------|........|........", ". . . 5 . 5 . .", 1, .15, .45, .3
