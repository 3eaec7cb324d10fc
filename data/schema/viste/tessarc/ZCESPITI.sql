-- Assets with the name of their category.
SELECT Cespiti.NCesp, Cespiti.Codice, Cespiti.Descrizione, Cespiti.Cat, CategorieCespiti.DescrCat,
  Cespiti.Dal, Cespiti.CespCorr, Cespiti.AmmCompl, Cespiti.Dismesso
FROM Cespiti LEFT JOIN CategorieCespiti ON Cespiti.Cat = CategorieCespiti.Cod
ORDER BY Cespiti.NCesp
