; players.orc - everything that plays notes: p4 note, p5 velocity, p6 lane, p7 position.
; At level 5 and 0 dB washes sit near -24 LUFS, keys and tunes near -24, basses near -22.

gSplayers = " felt grand rhodes pad dusk glass strings cello sub mono chord pluck bell vibes marimba kalimba harp \
nylon celesta upright flute clarinet horn muted jazz musicbox dulcimer fretless bowed organ hollow reed wire "

gisf sfload "FluidR3_GM.sf2"        ; found through SSDIR
giprogram = 0
while giprogram < 128 do
  gidone sfpreset giprogram, 0, gisf, giprogram
  giprogram += 1
od
gisine ftgen 0, 0, 8192, 10, 1
giwarm ftgen 0, 0, 2^18, "padsynth", 130.81, 28, 1, 1, 1, 1, 1, .55, .42, .2, .22, .1, .1, .05, .05, .03
gidark ftgen 0, 0, 2^18, "padsynth", 130.81, 22, 1, 1, 1, 1, 1, .3, .12, .05, .03
giglass ftgen 0, 0, 2^18, "padsynth", 261.63, 14, 1, 1, 1, 1, 1, 0, .12, .3, 0, 0, .06, .1, 0, 0, 0, .03
gibowed ftgen 0, 0, 2^18, "padsynth", 130.81, 46, 1, 1, 1, 1, 1, .8, .7, .55, .5, .42, .36, .3, .27, .24, .2, .18, .16, .14, .12, .1, .09, .08, .07, .06

gihollow ftgen 0, 0, 2^18, "padsynth", 130.81, 18, 1, 1, 1, 1, 0, .38, 0, .2, 0, .1, 0, .06, 0, .03
gireed ftgen 0, 0, 2^18, "padsynth", 130.81, 7, 1, 1, 1, .8, .9, .6, .5, .42, .3, .25, .2, .16, .12, .1, .08

gaL, gaR, gaDrumL, gaDrumR, gaHallL, gaHallR, gaEchoL, gaEchoR init 0, 0, 0, 0, 0, 0, 0, 0
gkpump init 1

opcode send, 0, aaii            ; a player to the desk
  aL, aR, ilane, ipan xin
  ipos = limit(gipan[ilane] + ipan, -1, 1)
  aL *= gigain[ilane] * 1.414 * cos((ipos + 1) * $M_PI / 4)
  aR *= gigain[ilane] * 1.414 * sin((ipos + 1) * $M_PI / 4)
  if gidrum[ilane] == 1 then
    gaDrumL += aL
    gaDrumR += aR
  else
    gaL += aL
    gaR += aR
  endif
  gaHallL += aL * gihall[ilane]
  gaHallR += aR * gihall[ilane]
  gaEchoL += aL * giecho[ilane]
  gaEchoR += aR * giecho[ilane]
endop

opcode sampled, aa, iiiiii      ; note, velocity, program, attack, release, brightness in Hz
  inote, ivel, iprogram, iattack, irelease, ibright xin
  icents = cent(random:i(-3, 3))
  aL, aR sfplay3 25 + ivel * 85, inote, (.1 + ivel * ivel) / 26000, icents, iprogram
  aenv linsegr 0, iattack, 1, 1, 1, irelease, 0
  kopen expseg 1.6, .5, 1, 6, .75
  kcut = limit(ibright * (.35 + .8 * ivel) * kopen * (.6 + inote / 130), 150, 15000)
  aL butterlp aL * aenv, kcut
  aR butterlp aR * aenv, kcut
  xout aL, aR
endop

opcode sheet, aa, iiiiii        ; note, velocity, table, its pitch, attack, release: a wide held tone
  inote, ivel, itable, ifund, iattack, irelease xin
  icps = mtof:i(inote) / ifund * sr / ftlen(itable)
  aenv linsegr 0, iattack, 1, 1, 1, irelease, 0
  aL poscil aenv * ivel * .2, icps * cent(random:i(-4, 4)), itable, random:i(0, 1)
  aR poscil aenv * ivel * .2, icps * cent(random:i(-4, 4)), itable, random:i(0, 1)
  xout aL * .9 + aR * .3, aR * .9 + aL * .3
endop

instr felt                      ; upright piano through a strip of cloth
  aL, aR sampled p4, p5, 0, .008, .55, 1500
  athump noise expseg(.05, .05, .0001, 1, .0001), 0
  athump butterlp athump * p5, 260
  adecay linseg 1, 7, .1, 1, .05
  send aL * adecay * 1.5 + athump, aR * adecay * 1.5 + athump, p6, p7
endin

instr grand
  aL, aR sampled p4, p5, 0, .002, .45, 7000
  adecay linseg 1, 9, .1, 1, .05
  send aL * adecay * 1.3, aR * adecay * 1.3, p6, p7
endin

instr rhodes                    ; two operators and a tine, tremolo across the room
  icps mtof p4
  kindex expseg .2 + 1.5 * p5, .9, .25 + .3 * p5, 5, .1
  abody foscili 1, icps, 1, 1, kindex, gisine
  atine foscili expseg(.16 * p5, .3, .01, 3, .001), icps, 1, 14, .6, gisine
  aenv linsegr 0, .004, 1, .02, .9, .35, 0
  adecay expseg 1, 4.5, .12, 6, .02
  atrem poscil .28, 3.7, gisine
  amix = (abody + atine) * aenv * adecay * p5 * p5 * .22
  send amix * (1 + atrem), amix * (1 - atrem), p6, p7
endin

instr pad                       ; warm sheet with a slow tide in the filter
  iatt min 2.4, p3 * .45
  aL, aR sheet p4, p5, giwarm, 130.81, iatt, 3.2
  kcut rspline 500 + p5 * 900, 900 + p5 * 2200, .05, .15
  aL butterlp aL, kcut
  aR butterlp aR, kcut
  send aL * 0.72, aR * 0.72, p6, p7
endin

instr dusk                      ; darker sheet for drones
  aL, aR sheet p4, p5, gidark, 130.81, min(3, p3 * .45), 4
  send aL * 0.58, aR * 0.58, p6, p7
endin

instr glass                     ; thin bright sheet
  aL, aR sheet p4, p5 * .7, giglass, 261.63, min(1.8, p3 * .4), 3
  send aL * 0.6, aR * 0.6, p6, p7
endin

instr strings                   ; a section: sampled bows inside a wide one
  iatt min .7, p3 * .3
  aL, aR sampled p4, p5, 48, iatt, 1.3, 4200
  aL2, aR2 sheet p4, p5, gibowed, 130.81, iatt * 1.3, 1.8
  kcut = 800 + p5 * 3400
  aL2 butterlp aL2, kcut
  aR2 butterlp aR2, kcut
  send (aL * .8 + aL2 * .7) * 0.62, (aR * .8 + aR2 * .7) * 0.62, p6, p7
endin

instr cello
  aL, aR sampled p4, p5, 42, min(.35, p3 * .3), .7, 2600
  send aL * 0.61, aR * 0.61, p6, p7
endin

instr sub                       ; sine and a little of its octave
  icps mtof p4
  aenv linsegr 0, .03, 1, 1, .92, .18, 0
  aone poscil p5 * .19, icps, gisine
  atwo poscil p5 * .04, icps * 2, gisine
  atwo += aone
  send atwo * aenv, atwo * aenv, p6, p7
endin

instr mono                      ; filtered saw over a sine
  icps mtof p4
  aenv linsegr 0, .005, 1, .06, .85, .07, 0
  kcut expseg 260 + 1300 * p5, .16, 210 + 240 * p5, 4, 180
  asaw vco2 .4, icps
  asaw zdf_ladder asaw, kcut, 1.4
  asub poscil .42, icps, gisine
  amix = (asaw + asub) * aenv * p5 * .4
  send amix, amix, p6, p7
endin

instr chord                     ; house stab: one detuned saw on each side
  icps mtof p4
  aenv linsegr 0, .004, 1, .12, .6, .5, .3, .16, 0
  kcut expseg 500 + 3600 * p5 * p5, .22, 330 + 700 * p5, 4, 250
  aL vco2 .34, icps * cent(7)
  aR vco2 .34, icps * cent(-7)
  aL zdf_ladder aL, kcut, 1.1
  aR zdf_ladder aR, kcut, 1.1
  send aL * aenv * p5 * 0.67, aR * aenv * p5 * 0.67, p6, p7
endin

instr pluck
  icps mtof p4
  aenv expsegr .001, .003, 1, .35, .06, 2, .001, .2, .001
  kcut expseg 700 + 3200 * p5, .12, 500, 3, 300
  atri vco2 .6, icps, 12
  asaw vco2 .24, icps * cent(5)
  amix zdf_ladder atri + asaw, kcut, 1.2
  send amix * aenv * p5 * 0.71, amix * aenv * p5 * 0.71, p6, p7
endin

instr bell                      ; soft struck metal
  icps mtof p4
  a1 foscili 1, icps, 1, 3.5, expseg(.9 * p5, 1.2, .02, 6, .01), gisine
  aenv expsegr .001, .006, 1, 3.2, .01, 2, .001, .6, .001
  send a1 * aenv * p5 * p5 * .22, a1 * aenv * p5 * p5 * .22, p6, p7
endin

instr vibes
  aL, aR sampled p4, p5, 11, .002, .9, 3200
  send aL * 0.48, aR * 0.48, p6, p7
endin
instr marimba
  aL, aR sampled p4, p5, 12, .002, .5, 3400
  send aL * 1.1, aR * 1.1, p6, p7
endin
instr kalimba
  aL, aR sampled p4, p5, 108, .002, .6, 3600
  send aL * 2.9, aR * 2.9, p6, p7
endin
instr harp
  aL, aR sampled p4, p5, 46, .002, .9, 4200
  send aL * 0.72, aR * 0.72, p6, p7
endin
instr nylon
  aL, aR sampled p4, p5, 24, .003, .4, 3400
  send aL * 1.8, aR * 1.8, p6, p7
endin
instr celesta
  aL, aR sampled p4, p5, 8, .002, .8, 3600
  send aL * 0.66, aR * 0.66, p6, p7
endin
instr upright
  aL, aR sampled p4, p5, 32, .004, .2, 1600
  send aL * 2.3, aR * 2.3, p6, p7
endin

instr flute                     ; soft winds: no edge, slow tongue
  aL, aR sampled p4, p5, 73, min(.09, p3 * .3), .35, 2400
  send aL * 0.6, aR * 0.6, p6, p7
endin
instr clarinet
  aL, aR sampled p4, p5, 71, min(.08, p3 * .3), .3, 1800
  send aL * 0.95, aR * 0.95, p6, p7
endin
instr horn
  aL, aR sampled p4, p5, 60, min(.25, p3 * .3), .7, 1300
  send aL * 0.75, aR * 0.75, p6, p7
endin
instr muted                     ; guitar strings under the palm
  aL, aR sampled p4, p5, 28, .002, .2, 2600
  send aL * 2.4, aR * 2.4, p6, p7
endin
instr jazz
  aL, aR sampled p4, p5, 26, .003, .4, 2600
  send aL * .8, aR * .8, p6, p7
endin
instr musicbox
  aL, aR sampled p4, p5, 10, .002, .9, 3400
  send aL * 1.7, aR * 1.7, p6, p7
endin
instr dulcimer
  aL, aR sampled p4, p5, 15, .002, .7, 3600
  send aL * 1.3, aR * 1.3, p6, p7
endin
instr fretless
  aL, aR sampled p4, p5, 35, .008, .2, 1500
  send aL * 1.3, aR * 1.3, p6, p7
endin

instr bowed                     ; metal bars under a bow: they bloom late and hang
  icps mtof p4
  iatt min 1.1, p3 * .45
  aenv linsegr 0, iatt, 1, 1, 1, 1.8, 0
  ktrem rspline .75, 1, .3, 1.1
  a1 poscil p5 * .2, icps * cent(random:i(-3, 3)), gisine
  a2 poscil p5 * p5 * .035, icps * 3.99, gisine
  a3 poscil p5 * .05, icps * 2, gisine
  send (a1 + a2 + a3) * aenv * ktrem * .4, (a1 - a2 + a3) * aenv * ktrem * .4, p6, p7
endin

instr organ                     ; four drawbars and a slow rotor
  icps mtof p4
  aenv linsegr 0, .012, 1, 1, .95, .12, 0
  krot lfo 3, .8 + .3 * p5
  icent random -2, 2
  a1 poscil .2, icps * cent(icent + krot), gisine
  a2 poscil .12, icps * 2 * cent(-icent), gisine
  a3 poscil .07, icps * 3 * cent(icent), gisine
  a4 poscil .05 * p5, icps * 4 * cent(krot), gisine
  amix = (a1 + a2 + a3 + a4) * aenv * p5
  amix *= .28
  send amix * (1 + krot * .06), amix * (1 - krot * .06), p6, p7
endin

instr hollow                    ; odd partials only, like breath over pipes
  iatt min 1.6, p3 * .4
  aL, aR sheet p4, p5, gihollow, 130.81, iatt, 2.6
  kcut = 700 + p5 * 2200
  aL butterlp aL, kcut
  aR butterlp aR, kcut
  send aL * .6, aR * .6, p6, p7
endin

instr reed                      ; a small harmonium, bellows never quite still
  iatt min .5, p3 * .3
  aL, aR sheet p4, p5, gireed, 130.81, iatt, 1.1
  kbel rspline .72, 1, .4, 1.3
  kcut = 600 + p5 * 2400
  aL butterlp aL * kbel, kcut
  aR butterlp aR * kbel, kcut
  send aL * .6, aR * .6, p6, p7
endin

instr wire                      ; short square tone for sequences
  icps mtof p4
  aenv expsegr .001, .002, 1, .16, .2, .7, .001, .09, .001
  kcut expseg 500 + 2600 * p5 * p5, .09, 380 + 400 * p5, 2, 250
  asq vco2 .5, icps * cent(random:i(-2, 2)), 10
  aout zdf_ladder asq, kcut, 2.2
  send aout * aenv * p5, aout * aenv * p5, p6, p7
endin
