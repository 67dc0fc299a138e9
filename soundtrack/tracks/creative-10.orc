; Light Chamber - creative - harp figures in six, strings lifting like a skylight
#include "studio.orc"
piece   "Light Chamber", 76, "A major", 3
chords  "A", "Aadd9:2 F#m7:2 Dmaj9:2 E/G#:2"
chords  "B", "Bm9:2 C#m7:2 Dmaj9:2 Esus4 E"
chords  "Z", "Dmaj9:2 Aadd9:2"
form    "AABAABBAZ", 3
space   "hall", .9, 8000
repeats 1, .35
tape    .2, .1
;        player          pattern                          A A B A A B B A Z
veil     "room",                                         "4 4 4 4 4 4 4 4 4", -4
wash     "strings", 57,                                  "2 3 4 3 4 5 6 4 3"
wash     "glass", 69,                                    ". . 3 . 3 4 5 3 3", -2
bass     "cello", 40,    "1-----|--5---",                ". 4 5 4 5 5 6 4 ."
keys     "harp", 62,     "012.43|0.2.1.",                "5 5 5 5 5 6 6 5 .", 0, .1, .3, .1
keys     "grand", 62,    "0...2.|..1...",                ". . 4 4 5 5 5 4 3", -1, -.15, .3
tune     "celesta", 76,  "5-3-2-|1-----|3-2-1-|......|5-6-5-|3-----|2---3-|2-----", ". 4 . 5 5 . . 4 .", 1, .2, .45, .25
tune     "celesta", 76,  "4---2-|3-----|5---3-|4-----|6---5-|3-----|4---2-|2-----", ". . 4 . . 5 6 . .", 1, .2, .45, .25
keys     "harp", 62,     "*.....",                       ". . . . . . . . 4", 0, 0, .4
