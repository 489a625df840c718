3
"Maria Rossi"
#1981-