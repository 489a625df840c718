12
"Nicolò Rossi"
#1938-03-19#
"Assunta D'Angelo"
#1941-08-15#
"Giosuè Rossi"
#1963-10-02#
"Maria Luisa Però"
#1965-05-27#
"Bartolomeo Rossi"
#1968-12-08#
"Chloé Moreau"
#1971-01-30#
"Elena Rossi"
#1974-07-11#
"Andrea Dell'Orto"
#1972-02-29#
"Zoë Rossi"
#1996-04-06#
"Matteo Rossi"
#1999-11-23#
"Giulia Dell'Orto"
#2004-09-14#
"Tommaso Rossi"
#2019-06-01#
#2026-11-21#
2
0
16711680
255
65280
65535
255
65280
65535
