; desk.orc - what every lane runs into: the echo, the hall, the pumping, the tape and the fade.

instr echo                      ; repeats that cross the room, darker each time
  itime = gidelay * 60 / gibpm
  afbL, afbR init 0
  abufL delayr itime + .1
  atapL deltapi itime
  delayw gaEchoL + gaEchoR * .25 + afbR * girepeat
  abufR delayr itime + .1
  atapR deltapi itime * 1.003
  delayw gaEchoR * .75 + afbL * girepeat
  afbL butterhp tone(atapL, 2600), 180
  afbR butterhp tone(atapR, 2600), 180
  gaL += afbL
  gaR += afbR
  gaHallL += afbL * .35
  gaHallR += afbR * .35
  clear gaEchoL, gaEchoR
endin

instr hall
  aL butterhp gaHallL, 140
  aR butterhp gaHallR, 140
  aL, aR reverbsc aL, aR, giroom, giair, sr, .4
  gaL += aL * .8
  gaR += aR * .8
  clear gaHallL, gaHallR
endin

instr master
  apump interp gkpump
  kwow rspline .3, 1, .2, .8
  aflutter poscil .02 * giwow, 6.3, gisine
  awow poscil 1.1 * giwow, .53, gisine
  aL vdelay3 gaL * apump, 8 + awow * kwow + aflutter, 30
  aR vdelay3 gaR * apump, 8 + awow * kwow * .9 - aflutter, 30
  idrive = 1 + gigrit
  aL = tanh((aL + gaDrumL) * idrive) / idrive
  aR = tanh((aR + gaDrumR) * idrive) / idrive
  aL butterhp aL, 26
  aR butterhp aR, 26
  afade linseg 0, .6, 1, p3 - 8.6, 1, 8, 0
  afade = sqrt(afade)
  outs aL * afade, aR * afade
  clear gaL, gaR, gaDrumL, gaDrumR
  gkpump = 1
  klast lastcycle
  if klast == 1 then
    event "e", 0, 0
  endif
endin
