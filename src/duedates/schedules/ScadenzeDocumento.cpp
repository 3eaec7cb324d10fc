#include "duedates/schedules/ScadenzeDocumento.h"

#include <algorithm>
#include <utility>

#include "core/records/Conferma.h"
#include "core/session/ImpostazioneAttiva.h"
#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "duedates/schedules/CreaScadenze.h"
#include "duedates/schedules/DeduzioneAnticipi.h"
#include "duedates/schedules/TestoScadenze.h"

namespace fenalto::duedates {
namespace {

/// Kind of a party's row of a VAT registration.
constexpr int kRigaParte = 5;

bool DiParte(const std::string& cfp) {
  return UgualeTesto(cfp, "C") || UgualeTesto(cfp, "F");
}

}  // namespace

// --- The document -------------------------------------------------------------------------------

bool ScadenzeDocumento::Apri(int anno, std::int64_t articolo) {
  if (articolo == 0) return false;
  const Registrazione prima = std::exchange(r_, {});
  r_.anno = anno;
  r_.articolo = articolo;
  const bool registrata = LeggiRegistrazione();
  Rileggi();
  if (registrata || !scadenze_.empty()) return true;
  r_ = prima;
  Rileggi();
  return false;
}

bool ScadenzeDocumento::LeggiRegistrazione() {
  const Rs testa = ambiente_.ArchivioDi("tessarc").Recordset(
      "SELECT * FROM Articoli WHERE " + sql::Criterio("Anno", "=", r_.anno) + " AND " +
      sql::Criterio("NumDoc", "=", r_.articolo));
  if (testa.Eof()) return false;
  // A payment's head has the accounts of both sides: the party may stand on the second.
  const bool prima = DiParte(testa.Fields("CFP").Testo());
  r_.cfp = testa.Fields(prima ? "CFP" : "CfpA").Testo();
  r_.conto = testa.Fields(prima ? "Conto" : "ContoA").Testo();
  r_.riva = testa.Fields("Riva").Testo();
  r_.nProt = testa.Fields("NProt").Intero();
  r_.nFat = testa.Fields("NFat").Testo();
  r_.dtFat = testa.Fields("DtFat").Data();
  r_.pagamento = testa.Fields("Pagamento").Testo();
  return true;
}

void ScadenzeDocumento::Rileggi() {
  scadenze_.clear();
  Rs righe = ambiente_.ArchivioDi("scadenzario")
                 .Recordset("SELECT * FROM SCADENZE WHERE " + sql::Criterio("Anno", "=", r_.anno) +
                            " AND " + sql::Criterio("Articolo", "=", r_.articolo) +
                            " ORDER BY Dt, Numero");
  for (; !righe.Eof(); righe.MoveNext()) {
    Scadenza scadenza = ScadenzaDi(righe);
    if (RegistrazioneSua(ambiente_, scadenza)) scadenze_.push_back(std::move(scadenza));
  }
  if (!DiParte(r_.cfp) && !scadenze_.empty()) {
    r_.cfp = scadenze_.front().cfp;
    r_.conto = scadenze_.front().conto;
  }
  anticipi_ = AnticipiAperti(ambiente_, r_.cfp, r_.conto);
  LeggiFattura();
}

std::string ScadenzeDocumento::Descrizione() const {
  std::string testo =
      "registrazione n. " + std::to_string(r_.articolo) + " del " + std::to_string(r_.anno);
  const std::string nome = NomeParte(ambiente_, r_.cfp, r_.conto);
  if (!r_.conto.empty()) testo += ": " + (nome.empty() ? r_.cfp + " " + r_.conto : nome);
  if (!r_.nFat.empty()) testo += ", ft. " + r_.nFat;
  if (!r_.dtFat.Nulla()) testo += " del " + r_.dtFat.Testo();
  if (!r_.riva.empty()) testo += ", registro " + r_.riva + " prot. " + std::to_string(r_.nProt);
  return testo;
}

RicercaScadenze ScadenzeDocumento::Ricerca() const {
  RicercaScadenze ricerca;
  ricerca.anno = r_.anno;
  ricerca.articolo = r_.articolo;
  ricerca.numeri.emplace();
  for (const Scadenza& s : scadenze_) ricerca.numeri->push_back(s.numero);
  ricerca.anchePagate = true;
  return ricerca;
}

RicercaScadenze ScadenzeDocumento::RicercaAnticipi() const {
  RicercaScadenze ricerca;
  ricerca.cfp = r_.cfp;
  ricerca.conto = r_.conto;
  ricerca.soloAnticipi = true;
  return ricerca;
}

std::vector<Coppia> ScadenzeDocumento::Nuova() const {
  std::vector<Coppia> campi = {{"CFP", r_.cfp},     {"Conto", r_.conto},
                               {"Anno", r_.anno},   {"Articolo", r_.articolo},
                               {"Riva", r_.riva},   {"NProt", r_.nProt},
                               {"DtFat", r_.dtFat}, {"NFat", std::string(Rifila(r_.nFat))}};
  campi.emplace_back("Pagamento", r_.pagamento);
  if (!scadenze_.empty()) campi.emplace_back("Descrizione", scadenze_.front().descrizione);
  return campi;
}

bool ScadenzeDocumento::DeduciAnticipi(std::int64_t numero) {
  const auto scelta = std::ranges::find(scadenze_, numero, &Scadenza::numero);
  if (scelta == scadenze_.end()) return false;
  return duedates::DeduciAnticipi(ambiente_, *scelta,
                                  ScegliAnticipi(ambiente_, *scelta, anticipi_));
}

// --- What the document prints -------------------------------------------------------------------

/// An issued invoice is numbered by the protocol of its register.
std::string ScadenzeDocumento::CondizioneFattura() const {
  return sql::Criterio("Anno", "=", r_.anno) + " AND " + sql::Criterio("Riva", "=", r_.riva) +
         " AND " + sql::Criterio("NumDoc", "=", r_.nProt) + " AND " +
         sql::Criterio("CFP", "=", r_.cfp) + " AND " + sql::Criterio("CliFor", "=", r_.conto);
}

void ScadenzeDocumento::LeggiFattura() {
  conStampa_ = !r_.riva.empty() && ImpostazioneAttiva(ambiente_, "ScadenzePagamento") &&
               !ambiente_.ArchivioDi("tessarc")
                    .Recordset("SELECT NumDoc FROM FattureCli WHERE " + CondizioneFattura())
                    .Eof();
}

Importo ScadenzeDocumento::TotaleRegistrato() const {
  Importo totale;
  Rs righe = ambiente_.ArchivioDi("tessarc").Recordset(
      "SELECT ImpoDare, ImpoAvere FROM Movimenti WHERE " + sql::Criterio("Anno", "=", r_.anno) +
      " AND " + sql::Criterio("NumDoc", "=", r_.articolo) + " AND " +
      sql::Criterio("TIPORIGA", "=", kRigaParte));
  for (; !righe.Eof(); righe.MoveNext()) {
    totale += righe.Fields("ImpoDare").Importo() - righe.Fields("ImpoAvere").Importo();
  }
  return UgualeTesto(r_.cfp, "C") ? totale : -totale;
}

ScadenzeDocumento::TestiStampa ScadenzeDocumento::Testi() const {
  const Rs fattura = ambiente_.ArchivioDi("tessarc").Recordset("SELECT * FROM FattureCli WHERE " +
                                                               CondizioneFattura());
  if (fattura.Eof()) return {};
  RichiestaScadenze richiesta;
  richiesta.codPag = fattura.Fields("Pagamento").Testo();
  richiesta.data = fattura.Fields("Dt").Data();
  richiesta.importo = TotaleRegistrato() - fattura.Fields("RaImporto").Importo() -
                      fattura.Fields("RaImporto2").Importo();
  // What the dates of a code may be moved by was told when they were made.
  std::vector<std::string> avvisi;
  std::vector<RataDocumento> scritte;
  for (const Scadenza& s : scadenze_) scritte.push_back({s.dt, s.importoE, s.tipo});
  return {fattura.Fields("ScadPag").Testo(),
          TestoScadenze(RateDocumento(ambiente_, richiesta, avvisi)), TestoScadenze(scritte)};
}

bool ScadenzeDocumento::ScegliStampa(const std::string& lettera) {
  Dialoghi& dialogo = ambiente_.Dialogo();
  if (lettera != "A" && lettera != "B" && lettera != "C") {
    dialogo.Messaggio("selezionare A oppure B oppure C", Icona::Avviso);
    return false;
  }
  const auto scrivi = [&]() -> std::string {
    const TestiStampa testi = Testi();
    const std::string& scelto =
        lettera == "A" ? testi.evidenziate : (lettera == "B" ? testi.codice : testi.scadenzario);
    const auto righe = ambiente_.ArchivioDi("tessarc").Esegui(
        "update FATTURECLI set SCADPAG=" + sql::LetteraleSql(Valore(scelto)) + " where " +
        CondizioneFattura());
    return righe == 0 ? "la fattura è stata eliminata da un'altra postazione" : "";
  };
  return records::Esegui(ambiente_,
                         {.nonRiuscita = "le scadenze della fattura non sono state memorizzate: ",
                          .dopoErrore = "",
                          .dopoRifiuto = "",
                          .scrivi = scrivi});
}

}  // namespace fenalto::duedates
