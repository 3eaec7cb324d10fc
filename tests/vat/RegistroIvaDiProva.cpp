#include "vat/RegistroIvaDiProva.h"

#include <algorithm>

#include "core/sql/Criterio.h"
#include "vat/postings/RegistrazioniAutomatiche.h"

namespace fenalto::prova {
namespace {

const char* ClasseDi(const std::string& riva) {
  if (riva == "2" || riva == "7" || riva == "9") return "P";
  return riva.starts_with("3") || riva == "4" || riva == "5" ? "F" : "C";
}

}  // namespace

RegistroIvaDiProva::RegistroIvaDiProva() {
  Transazione transazione(ambiente.Basi());
  for (const char* cod : {"6", "9"}) {
    Metti(Tessarc(), "RegistriIva", "Cod", cod, "Tipo", std::string("0") + cod, "Descrizione",
          std::string("Registro ") + cod, "Conto", "170.001");
  }
  transazione.Conferma();
  ambiente.ScriviImpostazione({}, "config", "RivaVentil", "3");
}

std::int64_t RegistroIvaDiProva::Scrivi(const Registrata& r) {
  std::optional<Transazione> transazione;
  if (!ambiente.Basi().InTransazione()) transazione.emplace(ambiente.Basi());
  const std::int64_t numDoc = ledger::ProssimoNumDoc(ambiente, r.anno);
  const std::string cfp = ClasseDi(r.riva);
  const std::string conto = cfp == "P" ? "100.010" : "0001";
  Metti(Tessarc(), "Articoli", "Anno", r.anno, "NumDoc", numDoc, "Dt", r.dt, "CFP", cfp, "Conto",
        conto, "Riva", r.riva, "NProt", r.nProt, "DtFat", r.dt, "NFat", std::to_string(r.nProt),
        "Ep", r.ep, "DtIncasso", r.dtIncasso);
  int posi = 0;
  Importo iva;
  for (const RigaRegistrata& riga : r.righe) {
    iva += riga.iva;
    Metti(Tessarc(), "Movimenti", "Anno", r.anno, "NumDoc", numDoc, "Posi", posi += 100, "CFP", "P",
          "Conto", "700.001", "TIPORIGA", 3, "CodIva", riga.codIva, "Imponibile", riga.imponibile,
          "Iva", riga.iva, "IvaInd", riga.ivaInd);
  }
  for (const int tipo : {4, 5}) {
    if (tipo == 4 && iva.Zero()) continue;
    Metti(Tessarc(), "Movimenti", "Anno", r.anno, "NumDoc", numDoc, "Posi", 9994 + tipo, "CFP", "P",
          "Conto", "170.001", "TIPORIGA", tipo);
  }
  if (transazione) transazione->Conferma();
  return numDoc;
}

void RegistroIvaDiProva::Scegli(const char* cod) {
  ASSERT_TRUE(registro.ScegliPeriodo(cod)) << cod;
  EXPECT_EQ(Messaggi(), std::vector<std::string>{});
}

vat::IntervalloRegistro& RegistroIvaDiProva::Intervallo(const char* riva) {
  const auto trovato =
      std::ranges::find(registro.Intervalli(), std::string(riva), &vat::IntervalloRegistro::riva);
  if (trovato == registro.Intervalli().end()) throw std::logic_error(riva);
  return *trovato;
}

bool RegistroIvaDiProva::Stampa(Risposta definitiva, vat::RegistroIvaUnico* altro) {
  vat::RegistroIvaUnico& quale = altro == nullptr ? registro : *altro;
  dialoghi.Rispondera(quale.Periodo().Annuale()
                          ? "MEMORIZZO I DATI PER LA DICHIAZIONE E COMUNICAZIONE ANNUALE IVA"
                          : "STAMPA DEFINITIVA ?",
                      definitiva);
  Verso(Destinazione::Testo);
  return quale.Stampa(uscite);
}

std::vector<std::string> RegistroIvaDiProva::Memorizzati(const char* tabella, const char* periodo) {
  std::vector<std::string> righe;
  for (Rs rs =
           Tessarc().Recordset(std::string("SELECT * FROM ") + tabella + " WHERE " +
                               sql::Criterio("PERIODO", "=", periodo) + " ORDER BY Riva, CodIva");
       !rs.Eof(); rs.MoveNext()) {
    righe.push_back(rs.Fields("Riva").Testo() + " " + rs.Fields("CodIva").Testo() + " " +
                    rs.Fields("Imponibile").Testo() + "/" + rs.Fields("Iva").Testo() + "/" +
                    rs.Fields("IvaInd").Testo());
  }
  return righe;
}

std::vector<std::string> RegistroIvaDiProva::Testi(
    const std::vector<vat::ProblemaRegistro>& problemi) const {
  std::vector<std::string> testi;
  for (const vat::ProblemaRegistro& p : problemi) testi.push_back((p.ferma ? "" : "? ") + p.testo);
  return testi;
}

}  // namespace fenalto::prova
