// Totals made by hand for the settlement, and its lines as text.
#pragma once

#include <string>
#include <vector>

#include "vat/settlement/LiquidazioneIva.h"

namespace fenalto::prova {

inline vat::PeriodoIva Periodo(const std::string& cod, int anno = 2024) {
  vat::PeriodoIva periodo;
  periodo.cod = cod;
  periodo.anno = anno;
  if (cod[0] == 'T') {
    periodo.aaMese = (cod[1] - '0') * 3;
    periodo.daMese = periodo.aaMese - 2;
  } else if (cod != "Z") {
    periodo.daMese = periodo.aaMese = std::stoi(cod);
  }
  periodo.testo = "periodo " + cod;
  return periodo;
}

/// A register named after its type, with one VAT code.
inline vat::TotaleRegistro Registro(const std::string& tipo, int segno, Importo iva,
                                    Importo differita = {}, const std::string& conto = "170.001") {
  vat::TotaleRegistro totale;
  totale.intervallo.riva = tipo;
  totale.intervallo.tipo = tipo;
  totale.intervallo.descrizione = "Prova";
  totale.intervallo.daIncassi = tipo == "08" || tipo == "08A";
  totale.segno = segno;
  totale.conto = conto;
  vat::TotaleCodice codice;
  codice.codIva = "22";
  codice.iva = iva;
  totale.codici.push_back(codice);
  if (!differita.Zero()) {
    codice.iva = differita;
    totale.differiti.push_back(codice);
  }
  return totale;
}

/// "description amount sign", a note in brackets.
inline std::vector<std::string> InRighe(const std::vector<vat::RigaLiquidazione>& righe) {
  std::vector<std::string> testi;
  for (const vat::RigaLiquidazione& riga : righe) {
    if (riga.nota) {
      testi.push_back("(" + riga.descrizione + ")");
      continue;
    }
    const char* segno = riga.segno < 0 ? " -" : " +";
    testi.push_back(riga.descrizione + " " + riga.importo.Testo() + (riga.segno == 0 ? "" : segno));
  }
  return testi;
}
inline std::vector<std::string> InRighe(const vat::Liquidazione& liquidazione) {
  return InRighe(liquidazione.righe);
}

}  // namespace fenalto::prova
