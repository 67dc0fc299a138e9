; Still Array - focus - wide pads in rows, a low end that knows when to stop
#include "studio.orc"
piece   "Still Array", 70, "Eb major"
chords  "A", "Ebmaj9:2 Cm9:2 Fm9:2 Abmaj9:2"
chords  "B", "Gm7:2 Abmaj9:2 Fm9:2 Bb9sus:2"
chords  "Z", "Ebmaj9:4"
form    "AABABAZ", 4
space   "hall", .9, 6500
repeats 1, .35
tape    .35, .1
;       player          pattern               A A B A B A Z
veil    "room",                              "4 4 5 4 5 4 4", -3
wash    "pad",     58,                       "4 4 5 6 6 5 4", 1
wash    "strings", 62,                       ". . 3 . 4 2 .", -2
wash    "glass",   68,                       ". 2 3 . 3 4 3", -2
bass    "sub",     36,  "1-----..|........", ". 3 4 5 5 4 3", -2
keys    "rhodes",  62,  "..0.....|....2...", "3 . 4 . 5 . .", -2, -.15, .35, .2
keys    "rhodes",  66,  "0..2..1.|....3...", ". 4 . 5 . 4 .", -2, -.15, .35, .2
keys    "harp",    70,  "......?.|..?.....", ". . 3 . 4 4 .", -2, .25, .45, .2
tune    "rhodes",  75,  "5-------|........|5---3---|........|1-------|........|2---3---|........", ". 4 . . . 5 .", 1, .1, .4, .3
tune    "rhodes",  75,  "2---3---|........|5---3---|........|1-------|4-------|2-------|........", ". . 4 . 5 . .", 1, .1, .4, .3
