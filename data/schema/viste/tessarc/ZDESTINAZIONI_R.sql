-- Places of delivery of customers, in their order.
SELECT Destinazioni_R.* FROM Destinazioni_R ORDER BY Destinazioni_R.Cod, Destinazioni_R.Posi
