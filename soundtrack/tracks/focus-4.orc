; North Window - focus - cool daylight on vibraphone, nothing below it but one long note
#include "studio.orc"
piece   "North Window", 92, "A major"
chords  "A", "Aadd9:2 C#m7:2 Dmaj9:2 F#m7:2"
chords  "B", "Bm9:2 Dmaj9:2 E6:2 F#m7:2"
chords  "Z", "Dmaj9:2 Aadd9:2"
form    "AABABAABZ", 3
space   "hall", .86, 10000
repeats .75, .35
tape    .1, .05
;       player          pattern               A A B A B A A B Z
veil    "air",                               "4 4 4 5 4 4 4 4 4", 0
wash    "glass",   64,                       "3 4 4 5 5 4 4 5 3", 1
wash    "pad",     57,                       ". 3 3 4 4 4 4 4 3", -2
bass    "sub",     33,  "1-------|------..", ". 3 4 4 4 4 4 4 3", -4
bass    "grand",   45,  "1-----5-|........", "4 4 4 5 5 4 5 5 4", -3, -.1
keys    "vibes",   66,  "0...2.1.|..3...2.", "4 5 . 5 . 5 5 . 4", 0, -.2, .35, .15
keys    "vibes",   66,  "0.2...3.|..1.4...", ". . 5 . 6 . . 6 .", 0, -.2, .35, .15
keys    "celesta", 78,  "......?.|........|..?.....|........", ". 3 . 4 . 3 4 . 3", -2, .3, .45, .3
tune    "grand",   76,  "5-----3-|........|2-----7-|........|6-----5-|3-------|........|........", ". . 4 . . 5 . . .", 0, .1, .4, .2
tune    "grand",   76,  "4---2---|........|6---5---|........|2---3---|5-------|........|........", ". . . . 5 . . 5 .", 0, .1, .4, .2
