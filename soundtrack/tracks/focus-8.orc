; Slow Circuit - focus - felt piano going round in five, a drone that keeps the floor warm
#include "studio.orc"
piece   "Slow Circuit", 68, "B minor", 5
chords  "A", "Bm9:2 Em9:2 Gmaj9:2 F#m7:2"
chords  "B", "Dmaj9:2 Aadd9/C#:2 Gmaj9:2 F#sus4:2"
chords  "Z", "Bm9:4"
form    "ABABZ", 5
space   "hall", .88, 4400
repeats 1, .4
tape    .6, .25
;       player          pattern                   A B A B Z
veil    "hiss",                                  "4 5 5 5 4", -2
veil    "room",                                  "4 4 4 4 4", -4
wash    "dusk",    54,                           "4 5 5 6 4", 1
wash    "strings", 59,                           ". 3 . 4 2", -3
bass    "sub",     35,  "1---------|--------..", "3 4 4 5 3", -3
bass    "felt",    47,  "1---5-----|1-----....", "4 5 . 5 4", -1, -.15
bass    "felt",    47,  "1-----5---|8---......", ". . 5 . .", -1, -.15
keys    "felt",    62,  "..0.1...2.|....1.....", "4 . 5 . 4", -1, .1, .35, .2
keys    "felt",    64,  "..0.2.1...|3...2.....", ". 5 . 6 .", -1, .1, .35, .2
tune    "felt",    74,  "....5---3-|..........|....5---4-|..........|....7---5-|..........|....3---2-|..........", ". 4 . 5 .", 1, .2, .4, .35
tune    "felt",    74,  "5-----3---|..........|5-----2---|..........|3-----2---|..........|1---------|..........", ". . 4 . .", 1, .2, .4, .35
