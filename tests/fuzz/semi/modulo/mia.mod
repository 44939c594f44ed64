# una schedina
gioco = lotto
foglio = 820, 2000
ingresso = sinistra
origine = 60, 120
passo = 45, 30
griglia = 10, 9
ordine = colonne dal basso
pannello = 0, 0
pannello = 0, 320
segno = ovale, 30, 15
ruota = Bari, 100, 1500
posta = 100, 300, 1500
correzione = -3, 4
scala = 10020, 9990
