; percussion.orc - drums and small noises. The kick and the thud push the music down as far as pump says.

gSdrums = " kick thud clap snare hat open ride shaker rim brush tom conga block \
deepkick feltkick swirl stick snap djembe softride grain tamb tick "

instr kick
  apitch expseg 170, .05, 58, .3, 50
  aenv expseg .001, .002, 1, .11, .5, .2, .001
  abody poscil aenv, apitch, gisine
  aclick noise expseg(.12, .008, .0001, 1, .0001), 0
  aclick butterlp aclick, 3200
  abody = tanh(abody * 1.5) * .46 * p5 + aclick * p5
  gkpump linseg 1 - giduck, .05, 1 - giduck, .24, 1
  send abody, abody, p6, p7
endin

instr clap
  aenv linseg 0, .001, 1, .009, .2, .001, 1, .009, .2, .001, 1, .02, .35, .14, 0
  aL noise aenv, 0
  aR noise aenv, 0
  aL butterbp aL, 1250, 900
  aR butterbp aR, 1350, 900
  send aL * p5, aR * p5, p6, p7
endin

opcode sizzle, a, ii            ; seconds, lowest frequency
  idecay, ilow xin
  aenv expseg .001, .001, 1, idecay, .001, 1, .001
  aout noise aenv * random:i(.85, 1.1), 0
  aout butterhp aout, ilow * random:i(.94, 1.08)
  xout butterlp(aout, 11500)
endop
instr hat
  aout sizzle .05 + .03 * p5, 7200
  send aout * p5 * .667, aout * p5 * .667, p6, p7
endin
instr open
  aout sizzle .28, 6400
  send aout * p5 * .46, aout * p5 * .46, p6, p7
endin
instr shaker
  aenv linseg 0, .028, 1, .05, 0, 1, 0
  aout noise aenv, 0
  aout butterbp aout, 6000 * random:i(.93, 1.07), 3600
  send aout * p5 * 0.29, aout * p5 * 0.29, p6, p7
endin
instr rim
  atick poscil expseg(.3, .03, .001, 1, .001), 1720, gisine
  ahiss noise expseg(.25, .012, .001, 1, .001), 0
  aout butterbp atick + ahiss, 1800, 1400
  send aout * p5, aout * p5, p6, p7
endin
instr brush
  aenv linseg 0, .03, 1, .13, 0, 1, 0
  aL noise aenv, 0
  aR noise aenv, 0
  aL butterbp aL, 2600, 2800
  aR butterbp aR, 2900, 2800
  send aL * p5 * 0.26, aR * p5 * 0.26, p6, p7
endin
instr tom
  apitch expseg 150, .08, 96, 1, 80
  aout poscil expseg(.5, .4, .001, 1, .001), apitch, gisine
  send aout * p5 * 0.7, aout * p5 * 0.7, p6, p7
endin

instr thud                      ; a kick with a pillow in it
  apitch expseg 105, .06, 52, .3, 47
  aenv expseg .001, .006, 1, .13, .5, .22, .001
  abody poscil aenv, apitch, gisine
  abody = tanh(abody * 1.2) * .5 * p5
  gkpump linseg 1 - giduck * .8, .05, 1 - giduck * .8, .26, 1
  send abody, abody, p6, p7
endin
instr snare                     ; half skin, half wire, tuned low
  askin poscil expseg(.35, .09, .01, .3, .001), expseg(230, .05, 178, 1, 170), gisine
  aenv expseg .001, .001, 1, .13, .02, .2, .001
  awire noise aenv * .5, 0
  awire butterbp awire, 2400, 3600
  aout = (askin + awire) * p5 * .5
  send aout, aout, p6, p7
endin
instr ride
  aring foscili expseg(.2, .5, .03, .6, .001), 3170, 1, 1.483, 2.6, gisine
  ahiss noise expseg(.2, .12, .02, .6, .001), 0
  aout butterhp aring * .35 + ahiss, 5200
  aout butterlp aout, 12000
  send aout * p5 * .9, aout * p5 * .9, p6, p7
endin
instr conga
  apitch expseg 262, .02, 214, .4, 206
  aout poscil expseg(.5, .16, .02, 1, .001), apitch, gisine
  aslap noise expseg(.1, .01, .001, 1, .0001), 0
  aslap butterbp aslap, 1400, 1200
  send (aout + aslap) * p5 * .4, (aout + aslap) * p5 * .4, p6, p7
endin
instr block
  aout poscil expseg(.4, .035, .01, .2, .001), 820, gisine
  atop poscil expseg(.12, .015, .005, .2, .001), 2210, gisine
  send (aout + atop) * p5 * .5, (aout + atop) * p5 * .5, p6, p7
endin

instr deepkick                  ; lower and rounder, for deep house: more room than skin
  apitch expseg 118, .045, 52, .3, 43
  aenv expseg .001, .003, 1, .16, .55, .26, .001
  abody poscil aenv, apitch, gisine
  aclick noise expseg(.05, .012, .0001, 1, .0001), 0
  aclick butterlp aclick, 1500
  abody = tanh(abody * 1.35) * .5 * p5 + aclick * p5
  gkpump linseg 1 - giduck, .06, 1 - giduck, .26, 1
  send abody, abody, p6, p7
endin
instr feltkick                  ; a bass drum touched with a brush
  apitch expseg 84, .05, 58, .3, 54
  aenv expseg .001, .009, 1, .1, .4, .18, .001
  abody poscil aenv, apitch, gisine
  abrush linseg 0, .012, .09, .05, 0, 1, 0
  abrush noise abrush, 0
  abrush butterbp abrush, 900 * random:i(.9, 1.1), 900
  abody = (abody * .5 + abrush) * p5
  gkpump linseg 1 - giduck * .7, .05, 1 - giduck * .7, .24, 1
  send abody * 1.15, abody * 1.15, p6, p7
endin
instr swirl                     ; a brush going round on the snare for as long as a beat
  p3 = 60 / gibpm * 1.1
  aenv linseg 0, p3 * .45, 1, p3 * .1, .9, p3 * .44, 0, 1, 0
  kround linseg 2100, p3 * .5, 3300, p3 * .5, 2300
  kside linseg -.3, p3, .3
  ahair noise aenv, 0
  agrain noise aenv * .5, 0
  ahair butterlp butterbp(ahair, kround, 2400), 5000
  agrain butterbp agrain, 420, 300
  ahair = (ahair + agrain) * p5 * .2
  send ahair * (1 - kside), ahair * (1 + kside), p6, p7
endin
instr stick                     ; across the rim, wood on wood, the hand on the skin
  aenv expseg .01, .001, .4, .035, .001, 1, .0005
  awood poscil aenv, 940 * random:i(.97, 1.03), gisine
  ahigh poscil aenv * .5, 1630 * random:i(.97, 1.03), gisine
  askin expseg .01, .002, .3, .06, .001, 1, .0005
  askin poscil askin, 205, gisine
  aout butterlp awood + ahigh, 2600
  aout = (aout + askin) * p5 * .7
  send aout, aout, p6, p7
endin
instr snap                      ; two fingers, far from the microphone
  aenv linseg 0, .003, .35, .012, .05, .004, 1, .016, .3, .07, 0, 1, 0
  aL noise aenv, 0
  aR noise aenv, 0
  icentre = 1900 * random:i(.92, 1.08)
  aL butterbp aL, icentre, 900
  aR butterbp aR, icentre * 1.05, 900
  aL butterlp aL, 4200
  aR butterlp aR, 4200
  send (aL + aR * .4) * p5 * .9, (aR + aL * .4) * p5 * .9, p6, p7
endin
instr djembe                    ; a low frame drum under the flat of the hand
  idrum = 88 * random:i(.98, 1.02)
  apitch expseg idrum * 1.25, .03, idrum * 1.03, .4, idrum
  aenv expseg .01, .004, .5, .2, .06, .25, .001
  aout poscil aenv, apitch, gisine
  aup expseg .01, .003, .16, .09, .001, 1, .0005
  aup poscil aup, idrum * 2.3, gisine
  ahand expseg .01, .003, .2, .03, .001, 1, .0001
  ahand noise ahand, 0
  ahand butterlp ahand, 900 + 900 * p5
  send (aout + aup + ahand) * p5 * .5, (aout + aup + ahand) * p5 * .5, p6, p7
endin
instr softride                  ; a brush resting on a dark cymbal
  p3 = 1.3
  aenv expseg .01, .006, 1, .12, .35, 1.1, .004, .05, .0005
  aring foscili 1, 2417 * random:i(.99, 1.01), 1, 1.4471, 3.1, gisine
  aring2 foscili 1, 3689, 1, 1.3307, 2.3, gisine
  ahair noise .5, 0
  aout butterhp (aring * .22 + aring2 * .16 + ahair) * aenv, 3400
  aout butterlp aout, 7000 + 2500 * p5
  aL = aout * p5 * .14
  send aL * 2, aL * 2, p6, p7
endin
instr grain                     ; a cabasa turned in the palm
  ilong = .05 * random:i(.85, 1.2)
  aenv linseg 0, ilong * .7, 1, ilong, 0, 1, 0
  kbeads randomh .25, 1, 420
  aout noise aenv * kbeads, 0
  aout butterbp aout, 5200 * random:i(.94, 1.06), 2600
  aout butterlp aout, 9000
  send aout * p5 * .495, aout * p5 * .495, p6, p7
endin
instr tamb                      ; small jingles against the leg
  aenv expseg .01, .006, 1, .03, .4, .16, .001, 1, .0005
  a1 poscil .16, 5130 * random:i(.98, 1.02), gisine
  a2 poscil .14, 6890 * random:i(.98, 1.02), gisine
  a3 poscil .1, 8210 * random:i(.98, 1.02), gisine
  ahiss noise .5, 0
  ahiss butterbp ahiss, 7000, 3600
  aout butterlp (a1 + a2 + a3 + ahiss) * aenv, 9500
  send aout * p5 * .362, aout * p5 * .362, p6, p7
endin
instr tick                      ; a small clean mark in time
  aenv expseg .01, .0015, 1, .022, .001, 1, .0005
  amark poscil aenv, 2350 * random:i(.97, 1.03), gisine
  alow poscil aenv * .5, 780, gisine
  aout butterlp amark * .6 + alow, 5200
  send aout * p5 * .4, aout * p5 * .4, p6, p7
endin
