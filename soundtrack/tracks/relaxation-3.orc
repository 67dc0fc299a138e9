; Coastline Loop - relaxation - surf that breathes, a nylon guitar thinking in fourths
#include "studio.orc"
piece   "Coastline Loop", 54, "G lydian"
chords  "A", "Gmaj9:2 Aadd9/G:2 Em9:2 Cmaj7:2"
chords  "B", "Bm7:2 Em9:2 F#m7:2 Gmaj9:2"
chords  "Z", "Gmaj9:2"
form    "AABAZ", 4
space   "hall", .9, 7000
repeats 1, .4
tape    .25, .1
;        player          pattern                          A A B A Z
veil     "surf",                                         "6 5 6 5 6", -3
wash     "pad", 57,                                      "3 4 4 4 4", -1
wash     "glass", 69,                                    ". 2 4 3 3", -2
bass     "sub", 36,      "1-------|------..",            ". 3 4 4 3", -4
bass     "nylon", 48,    "1-------|----5---",            "4 4 5 5 4", -4
keys     "nylon", 60,    "..1.2.3.|....4.?.",            "4 5 . 5 .", 0, -.15, .3, .2
keys     "nylon", 60,    "..1.2...|..3.1.2.",            ". . 5 . .", 0, -.15, .3, .2
tune     "vibes", 72,    "....5---|3-------|....6---|5-------|....5---|2-------|..3-2---|1-------", ". 4 . 5 .", 3, .2, .5, .3
tune     "vibes", 72,    "..7-5---|........|..6-5-3-|........|..5-3---|........|..4-3-2-|........", ". . 5 . .", 3, .2, .5, .3
