// The small company that the tests of the dialect ask questions of.
#pragma once

#include "core/sql/CatalogoProva.h"

namespace fenalto::prova {

inline constexpr const char* kCatalogo = R"(
Articoli: Anno intero, NumDoc intero, Dt data, Descrizione testo
Chiave Articoli: Anno, NumDoc
Movimenti: ID intero contatore, Anno intero, NumDoc intero, CFP testo, Conto testo, Causale testo, ImpoDare importo, ImpoAvere importo, _Dt data nascosto
Chiave Movimenti: ID
Specchio Movimenti, Articoli: Anno, NumDoc; Dt=_Dt
Conti: Cod testo, Descrizione testo, EP sino, Livello intero
Chiave Conti: Cod
Listini: Cod testo, Prezzo importo, Sconto reale null, Dal data null, Note testo null, Attivo sino null, Pezzi intero null
Vista zConti: SELECT Cod, Descrizione FROM Conti WHERE EP=False ORDER BY Descrizione
Vista zMovimenti: SELECT Movimenti.*, Articoli.Dt, Articoli.Descrizione FROM Movimenti LEFT JOIN Articoli ON Movimenti.Anno=Articoli.Anno AND Movimenti.NumDoc=Articoli.NumDoc
Vista zAlta: SELECT * FROM zConti WHERE Descrizione LIKE 'c*'
Vista zFisse: SELECT 7 AS n, True AS s, Count(*) AS q FROM Conti GROUP BY n, True ORDER BY True, n
Vista zGiro: SELECT * FROM zTondo
Vista zTondo: SELECT * FROM zGiro
Vista zRotta: SELECT Manca FROM Conti
)";

/// Days: 45292 is 01/01/2024. Movement 5 has no head.
inline constexpr const char* kRighe = R"(
INSERT INTO Articoli VALUES (2024,1,45292,'Apertura'),(2024,2,45300,'Vendita'),(2023,1,45000,'Vecchia');
INSERT INTO Movimenti(Anno,NumDoc,CFP,Conto,Causale,ImpoDare,ImpoAvere,_Dt) VALUES
 (2024,1,'P','01.001','APE',1000000,0,45292),(2024,1,'P','01.002','APE',0,1000000,45292),
 (2024,2,'C','C001','VEN',1220050,0,45300),(2024,2,'P','70.001','VEN',0,1220050,45300),
 (2024,9,'P','70.001','VEN',5,0,NULL),(2023,1,'p','70.001','VEN',33333,0,45000);
INSERT INTO Conti VALUES ('01.001','Cassa',0,1),('01.002','banca',0,1),('70.001','Merci c/vendite',1,2),('C001','L''Ànfora',0,3);
INSERT INTO Listini VALUES ('A',100000,NULL,45292,'prima',1,3),('B',25000,0.5,NULL,NULL,0,NULL),('c',0,0,45300,'',NULL,7);
)";

/// Database with those tables and rows.
class BancoConti : public BancoProva {
 public:
  BancoConti() : BancoProva(kCatalogo) { Motore(kRighe); }
};

}  // namespace fenalto::prova
