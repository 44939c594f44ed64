foglio = 1000, 2000
origine = 100, 200
passo = 60, 30
griglia = 10, 9
segno = rettangolo, 35, 15
pannello = 0, 0
