; desk.orc - what every lane runs into: the echo, the room, the pumping, the tape and the fade.

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
  gaRoomL += afbL * .35
  gaRoomR += afbR * .35
  clear gaEchoL, gaEchoR
endin

opcode diffuse, a, aii          ; an allpass: so many seconds, so dense 0..1
  ain, itime, idense xin
  aout alpass ain, log(.001) * itime / log(idense), itime
  xout aout
endop

opcode hall, aa, aa             ; long and even, the far walls never heard by themselves
  aL, aR xin
  aL, aR reverbsc aL, aR, gisize, giair, sr, .4
  xout aL, aR
endop

opcode plate, aa, aa            ; a sheet of steel: dense at once, bright, quick to leave
  aL, aR xin
  aleft, aright init 0
  ikeep = gisize * gisize * .58
  aone vdelay tone(aL + aR, giair), 11, 20
  aone diffuse diffuse(diffuse(diffuse(aone, .00477, .75), .0036, .75), .01273, .62), .0093, .62
  ain = aone + aright * ikeep
  ain diffuse ain, .0305, .7
  a1 delay ain, .1413
  a1 tone a1, giair
  a2 diffuse a1, .0605, .5
  a3 delay a2, .1063
  ain = aone + aleft * ikeep
  ain diffuse ain, .0226, .7
  a4 delay ain, .1496
  a4 tone a4, giair
  a5 diffuse a4, .0893, .5
  a6 delay a5, .1249
  aleft = a3
  aright = a6
  xout diffuse(aone, .0131, .6) * .42 + (a1 - a5 + a6) * .36, diffuse(aone, .0178, .6) * .42 + (a4 - a2 + a3) * .36
endop

opcode wall, a, aiiiiii         ; what six walls give back of a sound, later and softer
  ain, i1, i2, i3, i4, i5, i6 xin
  aout multitap ain, i1, .7, i2, .58, i3, .5, i4, .4, i5, .32, i6, .24
  xout aout
endop

opcode chamber, aa, aa          ; a wooden room for a few players: near walls, a short tail
  aL, aR xin
  aL tone aL, giair
  aR tone aR, giair
  awallL wall aL + aR * .4, .0073, .0112, .0171, .0233, .0317, .0413
  awallR wall aR + aL * .4, .0083, .0131, .0191, .0271, .0342, .0457
  atailL, atailR freeverb awallL, awallR, gisize * .62, .45
  xout awallL * .5 + atailL * .5, awallR * .5 + atailR * .5
endop

instr reverberation
  aL butterhp gaRoomL, 140
  aR butterhp gaRoomR, 140
  if giroom == 1 then
    aL, aR plate aL, aR
  elseif giroom == 2 then
    aL, aR chamber aL, aR
  else
    aL, aR hall aL, aR
  endif
  gaL += aL * .8
  gaR += aR * .8
  clear gaRoomL, gaRoomR
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
  ibar = gimetre * 60 / gibpm
  afade linseg 0, ibar, 1, p3 - ibar - 9, 1, 9, 0
  afade = sqrt(afade)
  outs aL * afade, aR * afade
  clear gaL, gaR, gaDrumL, gaDrumR
  gkpump = 1
  klast lastcycle
  if klast == 1 then
    event "e", 0, 0
  endif
endin
