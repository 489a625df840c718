3
"Maria Rossi"
#1981-12-25#
"Niccolò D'Amico"
#1958-11-05#
