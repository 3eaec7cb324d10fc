// A company with what the closing of a year asks for in its settings.
#pragma once

#include <map>
#include <string>
#include <utility>

#include "ledger/Stampati.h"
#include "ledger/closing/Chiusure.h"
#include "ledger/closing/TrasportoSaldi.h"

namespace fenalto::prova {

inline constexpr const char* kProfittiPerdite = "980.001";
inline constexpr const char* kUtilePerdita = "300.010";
inline constexpr const char* kContoChiusura = "980.002";
inline constexpr const char* kContoApertura = "970.001";

class ChiusureDiProva : public DittaDaStampare {
 protected:
  ChiusureDiProva() {
    for (const auto& [chiave, valore] : std::initializer_list<std::pair<const char*, const char*>>{
             {"C_ProfittiPerdite", kProfittiPerdite},
             {"Cau_ProfittiPerdite", "060"},
             {"C_UtilePerdita", kUtilePerdita},
             {"Cau_UtilePerdita", "061"},
             {"C_Chiusura", kContoChiusura},
             {"Cau_Chiusura", "062"},
             {"ContropartitaApertura", kContoApertura}}) {
      ambiente.ScriviImpostazione({}, "config", chiave, valore);
    }
  }

  /// A small year: a capital of 1.000 in cash, a sale of 500 to a customer, goods for 300 from a
  /// supplier of the same code.
  void AnnoPiccolo() {
    Articolo(2024, 1, G(1, 1, 2024),
             {{"P", "100.010", I("1000"), "APE"}, {"P", "300.001", I("-1000"), "APE"}});
    Articolo(2024, 2, G(1, 3, 2024), {{"C", "0001", I("500")}, {"P", "700.010", I("-500")}});
    Articolo(2024, 3, G(2, 4, 2024), {{"P", "500.010", I("300")}, {"F", "0001", I("-300")}});
  }

  /// Registrations and rows, in the order in which they were written.
  std::string Libri() {
    std::string testo;
    for (const char* sql :
         {"select * from Articoli order by ID", "select * from Movimenti order by Num"}) {
      for (Rs rs = Tessarc().Recordset(sql); !rs.Eof(); rs.MoveNext()) {
        for (std::size_t i = 0; i < rs.Colonne().size(); ++i) {
          testo += rs.Fields(i).Neutro() + "|";
        }
        testo += "\n";
      }
    }
    return testo;
  }

  /// Rows of a query as text, values joined by bars.
  std::vector<std::string> Leggi(const std::string& sql) {
    std::vector<std::string> righe;
    for (Rs rs = Tessarc().Recordset(sql); !rs.Eof(); rs.MoveNext()) {
      std::string riga;
      for (std::size_t i = 0; i < rs.Colonne().size(); ++i) {
        riga += (i == 0 ? "" : "|") + rs.Fields(i).Neutro();
      }
      righe.push_back(std::move(riga));
    }
    return righe;
  }

  /// Balances of a year added up row by row, whatever the date and the causal.
  std::map<std::string, Importo> Saldi(int anno) {
    std::map<std::string, Importo> saldi;
    for (Rs rs = Tessarc().Recordset("select CFP, Conto, ImpoDare, ImpoAvere from Movimenti where "
                                     "Anno=" +
                                     std::to_string(anno));
         !rs.Eof(); rs.MoveNext()) {
      saldi[rs.Fields(std::size_t{0}).Testo() + " " + rs.Fields(1).Testo()] +=
          rs.Fields(2).Importo() - rs.Fields(3).Importo();
    }
    std::erase_if(saldi, [](const auto& voce) { return voce.second.Zero(); });
    return saldi;
  }

  /// A run that is answered yes.
  bool Conferma(const char* domanda, const std::function<bool()>& corsa) {
    dialoghi.Rispondera(domanda, Risposta::Si);
    return corsa();
  }
  bool GiroEconomici() {
    ledger::Chiusure chiusure(ambiente);
    return Conferma("CONFERMA GIRO CONTI ECONOMICI ?",
                    [&] { return chiusure.ConfermaEconomici(); });
  }
  bool GiroUtile() {
    ledger::Chiusure chiusure(ambiente);
    return Conferma("CONFERMA GIRO utile/perdita", [&] { return chiusure.ConfermaUtile(); });
  }
  bool Chiude() {
    ledger::Chiusure chiusure(ambiente);
    return Conferma("CONFERMA CHIUSURA CONTI PATRIMONIALI ?",
                    [&] { return chiusure.ConfermaChiusura(); });
  }
  bool Trasporta(bool definitivo) {
    ledger::TrasportoSaldi trasporto(ambiente);
    trasporto.LetturaSaldi();
    trasporto.Dati().Scrivi("TrasportoDefinitivo", definitivo);
    return Conferma(definitivo ? "DEFINITIVO saldi' (causale APE)" : "NON DEFINITIVO saldi'",
                    [&] { return trasporto.ConfermaSaldi(); });
  }
};

}  // namespace fenalto::prova
