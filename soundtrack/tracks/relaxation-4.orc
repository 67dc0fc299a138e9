; Misted Window - relaxation - three slow beats: harp on the sill, a cello indoors, the wind clearing the glass
#include "studio.orc"
piece   "Misted Window", 66, "A dorian", 3
chords  "A", "Am7:2 D/A:2 Fmaj7:2 Em7:2"
chords  "B", "Cmaj9:2 G/B:2 D/A:2 Em7:2"
chords  "C", "Fmaj9:2 Cmaj9/E:2 D9sus:2 Em7:2"
chords  "Z", "Am7:2 D/A:2 Asus2:4"
form    "AABACBAZ", 4
space   "hall", .92, 6000
repeats 1.5, .45
tape    .4, .15
;       player             pattern                                                      A A B A C B A Z
veil    "wind",                                                                       "5 4 4 3 4 4 3 4", -2
veil    "drops",                                                                      "3 3 2 3 2 2 . 4", 0
wash    "glass",       65,                                                            "3 3 . 4 5 . 4 3", -1
wash    "dusk",        53,                                                            ". 3 4 4 4 5 4 2", -3
wash    "tapestrings", 65,                                                            ". . . . 4 3 . .", -4
bass    "upright",     36, "1-----|......|1-----|..5---",                             ". 3 4 4 5 5 4 .", -3
bass    "sub",         36, "1-----|------",                                           "3 . . . . . . 3", -5
keys    "harp",        60, "0.1.2.|3.2.1.|0.2.3.|4.....",                             "3 4 . 5 . . 4 3", 0, .1, .35, .15
keys    "harp",        62, "0.2.1.|3...2.|0.1.3.|..2...",                             ". . 4 . 5 5 . .", 0, .1, .35, .15
keys    "celesta",     67, "..?...|......|....?.|......",                             ". . 3 . . 4 3 .", -4, .3, .5, .3
tune    "cello",       57, "5-----|3-----|......|......|5-----|1-----|......|......", ". . . 4 . . . .", 3.5, -.15, .5
tune    "cello",       57, "1-----|3-----|......|......|8---7-|5-----|......|......", ". . . . 6 . . .", 3.5, -.15, .5
tune    "flute",       69, "......|5---3-|2-----|......|......|4---1-|2-----|......", ". . . . . 4 . .", 1.5, .2, .5, .2
tune    "cello",       57, "3-----|1-----|......|......|5-----|......|......|e-----", ". . . . . . 4 .", 3.5, -.15, .5
