; Coastline Loop - relaxation - surf that breathes, a nylon guitar thinking in fourths, a second one swelling behind it
#include "studio.orc"
piece   "Coastline Loop", 54, "G lydian"
chords  "A", "Gmaj9:2 Aadd9/G:2 Em9:2 Cmaj7:2"
chords  "B", "Bm7:2 Em9:2 F#m7:2 Gmaj9:2"
chords  "C", "Em9:2 Aadd9/C#:2 Dmaj9:2 A9sus:2"
chords  "Z", "Gmaj9:2 Aadd9/G:2 Gmaj9:2"
form    "ABACZ", 5
space   "chamber", .9, 7000
repeats 1, .4
tape    .25, .1
stray   .18
;       player       pattern                                                                      A B A C Z
veil    "surf",                                                                                 "6 5 4 5 5", -7
wash    "swell", 59,                                                                            "3 4 . 5 4", 0
wash    "pad",   59,                                                                            ". 3 5 4 3", -3
wash    "prism", 71,                                                                            ". . . 4 2", -8
bass    "sub",   38, "1-------|------..|1-------|----8-..|1-------|------..|1---5---|--3-5-..", "3 3 4 5 3", -5
bass    "nylon", 48, "1-----5-|....8...|1---5---|....3...",                                     ". 4 . 5 4", -4
keys    "nylon", 60, "..1.2.3.|....4.?.|..0.2.4.|3.......",                                     "4 . 5 . 4", 0, -.15, .3, .2
keys    "nylon", 62, "0.2.3.1.|..4...2.|0.1.3.2.|....?...",                                     ". 5 . 5 .", 0, -.15, .3, .2
tune    "vibes", 72, "....5---|3-------|........|........|....7---|5-------|........|..3-----", ". . 4 . .", 4.5, .2, .5, .3
tune    "vibes", 72, "..7-5---|........|........|........|..7-2---|........|..5-3---|........", ". 4 . . .", 4.5, .2, .5, .3
tune    "flute", 67, "..3---5-|7-------|........|........|..9---7-|6-------|........|........", ". . . 4 .", 1.5, .1, .5, .2
tune    "vibes", 72, "........|........|..2-6---|........|........|........|..5-2---|........", ". . . 5 .", 3.5, .25, .5, .3
