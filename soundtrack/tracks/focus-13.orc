; Night Draft - focus - one lamp, a dark electric piano, insects beyond the screen
#include "studio.orc"
piece   "Night Draft", 78, "F minor"
chords  "A", "Fm9:2 Dbmaj9:2 Fm9:2 Cm7:2"
chords  "B", "Bbm9:2 Abmaj9:2 Dbmaj9:2 Csus4:2"
chords  "Z", "Fm9:4"
form    "AABABAZ", 5
space   "hall", .87, 3600
repeats .75, .4
tape    .55, .3
;       player           pattern               A A B A B A Z
veil    "crickets",                           "4 4 4 4 4 4 4", -2
veil    "brown",                              "4 4 4 4 4 4 4", -4
wash    "dusk",     56,                       "4 4 5 5 6 5 4", 1
wash    "strings",  55,                       ". . 2 . 3 2 .", -2
bass    "sub",      36,  "1-----..|....5-..", ". 4 4 5 5 4 3", -2
bass    "fretless", 41,  "1-------|....7---", ". . 4 . 5 4 .", -5, -.1
keys    "rhodes",   60,  "0..1..2.|........", "4 . 4 . 5 . 4", -2, -.1, .3, .2
keys    "rhodes",   60,  "0..2..1.|..3.....", ". 4 . 5 . 5 .", -2, -.1, .3, .2
stab    "muted",    62,  "......x-|........", ". . 4 . 4 4 .", -5, .3, .4, .35
tune    "rhodes",   68,  "....3-1-|........|..5-3---|........|....5-3-|........|..2-1---|........", ". 4 . 4 . 5 .", 1, .1, .4, .35
tune    "felt",     72,  "4---3---|........|3---5---|........|4---3---|1-------|5-------|........", ". . 4 . 5 . .", 1, .2, .45, .3
