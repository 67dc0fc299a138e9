; Quiet Thunder - relaxation - a storm three valleys away, a horn that waits for it to pass
#include "studio.orc"
piece   "Quiet Thunder", 52, "C minor"
chords  "A", "Cm9:2 Abmaj9:2 Fm9:2 Gm7:2"
chords  "B", "Ebmaj9:2 Bb9sus:2 Abmaj7:2 Gsus4:2"
chords  "Z", "Cm9:4"
form    "ABABZ", 5
space   "hall", .93, 4800
repeats 2, .35
tape    .4, .15
;       player          pattern               A B A B Z
veil    "thunder",                           "6 5 7 5 6", -5
veil    "brown",                             "4 4 5 5 4", -7
wash    "dusk",    55,                       "3 4 5 6 4"
wash    "strings", 60,                       ". 2 . 4 2", -1
bass    "sub",     36,  "1-------|--------", "3 4 4 5 3", -3
bass    "cello",   43,  "1-------|----5---", ". 3 . 4 .", -2, -.2
keys    "felt",    62,  "....1.2.|....?...", "3 . 4 . 3", -1, .15, .4, .15
tune    "horn",    60,  "....5---|3-------|....1---|........|....4---|3-------|....2---|........", "4 . 5 . .", 2, -.1, .5
tune    "horn",    60,  "..3---2-|1-------|..2-4---|........|..3---1-|........|2-------|1-------", ". 5 . 6 .", 2, -.1, .5
tune    "felt",    74,  "......5.|........|......3.|........", ". 3 . 4 3", 0, .2, .45, .3
