#include "core/archives/Importazione.h"

#include <algorithm>
#include <iterator>

#include "core/archives/LettoreTabella.h"
#include "core/sql/Criterio.h"
#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"

namespace fenalto::archives {
namespace {

constexpr std::size_t kPassoAvanzamento = 100;

const sql::ColonnaCatalogo* ColonnaDi(Ambiente& ambiente, const std::string& tabella,
                                      const std::string& campo) {
  const auto* trovata = ambiente.ArchivioDi("tessarc").Catalogo().Tabella(tabella);
  return trovata == nullptr ? nullptr : trovata->Colonna(campo);
}

/// Where a field of lines that go into that table is kept.
const sql::ColonnaCatalogo* ColonnaDi(Ambiente& ambiente, const std::string& tabella,
                                      const CampoImporta& campo) {
  return campo.accanto.empty() ? ColonnaDi(ambiente, tabella, campo.nome)
                               : ColonnaDi(ambiente, campo.accanto, campo.colonna);
}

bool HaTabella(Ambiente& ambiente, const std::string& tabella) {
  return ambiente.ArchivioDi("tessarc").Catalogo().Tabella(tabella) != nullptr;
}

std::string InTesto(const Valore& valore) {
  switch (valore.Tipo()) {
    case Tipo::Booleano:
      return valore.Booleano() ? "sì" : "no";
    case Tipo::Importo:
      return ScriviImporto(valore.Importo(), 2);
    case Tipo::Data:
      return valore.Data().Testo();
    default:
      return valore.Testo();
  }
}

}  // namespace

/// One pass over the lines.
struct Importazione::Controllo {
  explicit Controllo(Ambiente& ambiente) : contesto(ambiente) {}

  void Errore(const RigaImporta& riga, const std::string& colonna, std::string_view valore,
              std::string motivo) {
    if (esito.errori.size() < kMassimoErrori) {
      esito.errori.push_back({riga.linea, colonna, std::string(valore), std::move(motivo)});
    }
  }
  /// False when the user cancelled.
  bool Avanza() {
    if (++fatte % kPassoAvanzamento != 0 || avanzamento == nullptr) return true;
    esito.annullata = !avanzamento->Avanza(static_cast<std::int64_t>(fatte));
    return !esito.annullata;
  }

  EsitoImporta esito;
  ContestoImporta contesto;
  std::vector<RigaImporta> buone;
  std::vector<Decimali> stili;               ///< by column
  std::map<std::string, std::size_t> visti;  ///< table and code, with the line
  std::unique_ptr<Avanzamento> avanzamento;
  std::size_t fatte = 0;
  OpzioniImporta opzioni;
};

Importazione::Importazione(Ambiente& ambiente, GenereImporta genere)
    : ambiente_(ambiente), genere_(std::move(genere)) {
  for (const auto& campo : genere_.campi) {
    const bool colonna = std::any_of(
        genere_.tabelle.begin(), genere_.tabelle.end(),
        [&](const std::string& tabella) { return ColonnaDi(ambiente_, tabella, campo); });
    const bool codici = campo.riferimento.empty() || HaTabella(ambiente_, campo.riferimento);
    if (colonna && codici) campi_.push_back(campo);
  }
}

Esito<bool> Importazione::Apri(const std::filesystem::path& file) {
  auto letta = LeggiTabella(file);
  if (!letta) return letta.Errore();
  Prendi(std::move(letta).Valore());
  return true;
}

Esito<bool> Importazione::ApriTesto(std::string_view byte) {
  auto letta = LeggiTabellaDaTesto(byte);
  if (!letta) return letta.Errore();
  Prendi(std::move(letta).Valore());
  return true;
}

void Importazione::Prendi(TabellaCsv tabella) {
  tabella_ = std::move(tabella);
  corrispondenze_ = std::make_unique<Corrispondenze>(ambiente_, genere_, campi_, tabella_.nomi);
}

Tipo Importazione::TipoDi(const CampoImporta& campo) const {
  for (const auto& tabella : genere_.tabelle) {
    if (const auto* colonna = ColonnaDi(ambiente_, tabella, campo)) return colonna->tipo;
  }
  return Tipo::Testo;
}

std::vector<CampoImporta> Importazione::CampiAbbinati() const {
  std::vector<CampoImporta> abbinati;
  if (!Aperta()) return abbinati;
  std::copy_if(
      campi_.begin(), campi_.end(), std::back_inserter(abbinati),
      [&](const CampoImporta& campo) { return corrispondenze_->Colonna(campo.nome).has_value(); });
  return abbinati;
}

std::vector<Decimali> Importazione::Stili() const {
  std::vector<Decimali> stili(tabella_.nomi.size(), Decimali::Ignoto);
  for (std::size_t i = 0; i < stili.size(); ++i) {
    const auto campo = corrispondenze_->Campo(i);
    if (!campo || TipoDi(campi_[*campo]) != Tipo::Importo) continue;
    StileDecimali stile;
    for (const auto& riga : tabella_.righe) stile.Guarda(riga.campi[i]);
    stili[i] = stile.Stile();
  }
  return stili;
}

std::vector<std::vector<std::string>> Importazione::Anteprima(std::size_t righe) const {
  std::vector<std::vector<std::string>> mostrate;
  if (!Aperta()) return mostrate;
  const auto abbinati = CampiAbbinati();
  const auto stili = Stili();
  for (std::size_t i = 0; i < std::min(righe, tabella_.righe.size()); ++i) {
    auto& mostrata = mostrate.emplace_back();
    for (const auto& campo : abbinati) {
      const std::size_t colonna = *corrispondenze_->Colonna(campo.nome);
      const std::string& testo = tabella_.righe[i].campi[colonna];
      const auto letto = LeggiValoreDiFile(testo, campo, TipoDi(campo), stili[colonna]);
      mostrata.push_back(letto ? InTesto(letto.Valore()) : "? " + testo);
    }
  }
  return mostrate;
}

bool Importazione::Completo(Controllo& controllo) const {
  for (const auto& campo : campi_) {
    const bool serve =
        campo.nome == "Cod" || (campo.obbligatorio && !controllo.opzioni.aggiornaEsistenti);
    if (!serve || corrispondenze_->Colonna(campo.nome)) continue;
    controllo.Errore(
        {}, "", "",
        "nessuna colonna del file dà «" + campo.didascalia + "»: sceglierla nella colonna Campo");
  }
  return controllo.esito.errori.empty();
}

bool Importazione::LeggiCampo(Controllo& controllo, const TabellaCsv::Riga& dati,
                              const CampoImporta& campo, RigaImporta& riga) const {
  const auto* colonna = ColonnaDi(ambiente_, riga.tabella, campo);
  const auto posto = corrispondenze_->Colonna(campo.nome);
  const std::string testo = posto ? dati.campi[*posto] : std::string();
  const std::string nome = posto ? tabella_.nomi[*posto] : campo.didascalia;
  const auto rifiuta = [&](std::string motivo) {
    controllo.Errore(riga, nome, testo, std::move(motivo));
    return false;
  };
  if (campo.obbligatorio && Rifila(testo).empty() && (riga.nuova || posto)) {
    return rifiuta("manca «" + campo.didascalia + "»");
  }
  if (!posto || (riga.nuova && Rifila(testo).empty())) return true;
  auto letto = LeggiValoreDiFile(testo, campo, colonna->tipo, controllo.stili[*posto]);
  if (!letto) return rifiuta(letto.Errore().messaggio);
  const std::string codice = letto.Valore().Testo();
  if (!campo.riferimento.empty() && !codice.empty() &&
      !controllo.contesto.Esiste(campo.riferimento, codice)) {
    return rifiuta("«" + codice + "» non c'è nell'archivio " + campo.riferimento);
  }
  if (campo.accanto.empty()) {
    riga.valori.emplace_back(colonna->nome, std::move(letto).Valore());
  } else {
    riga.accanto.emplace_back(campo.nome, std::move(letto).Valore());
  }
  return true;
}

/// Reads the fields of a line; how many couldn't be.
std::size_t Importazione::LeggiCampi(Controllo& controllo, const TabellaCsv::Riga& dati,
                                     RigaImporta& riga) const {
  std::size_t errori = 0;
  for (const auto& campo : campi_) {
    if (campo.nome == "Cod" || (riga.seguito && campo.accanto.empty())) continue;
    if (ColonnaDi(ambiente_, riga.tabella, campo) == nullptr) continue;
    if (!LeggiCampo(controllo, dati, campo, riga)) ++errori;
  }
  return errori;
}

bool Importazione::Seguito(Controllo& controllo, const TabellaCsv::Riga& dati, std::size_t prima,
                           RigaImporta& riga) const {
  const std::size_t colonna = *corrispondenze_->Colonna("Cod");
  const auto rifiuta = [&](std::string motivo) {
    controllo.Errore(riga, tabella_.nomi[colonna], dati.campi[colonna], std::move(motivo));
    return false;
  };
  const auto per = corrispondenze_->Colonna(genere_.ripetutoPer);
  if (!per || Rifila(dati.campi[*per]).empty()) {
    return rifiuta("codice ripetuto: è già alla riga " + std::to_string(prima));
  }
  if (!controllo.contesto.Esiste(riga.tabella, riga.Testo("Cod"))) {
    return rifiuta("il codice è alla riga " + std::to_string(prima) + ", che è sbagliata");
  }
  riga.seguito = true;
  return true;
}

bool Importazione::LeggiCodice(Controllo& controllo, const TabellaCsv::Riga& dati,
                               RigaImporta& riga) const {
  const auto& campo = *std::find_if(campi_.begin(), campi_.end(),
                                    [](const CampoImporta& uno) { return uno.nome == "Cod"; });
  const std::size_t colonna = *corrispondenze_->Colonna("Cod");
  const std::string& testo = dati.campi[colonna];
  auto letto = LeggiTestoDiFile(testo, campo.lunghezza, false);
  if (!letto || letto.Valore().empty()) {
    controllo.Errore(riga, tabella_.nomi[colonna], testo,
                     letto ? std::string("manca il codice") : letto.Errore().messaggio);
    return false;
  }
  const auto [visto, primo] =
      controllo.visti.try_emplace(riga.tabella + "|" + SenzaMaiuscole(letto.Valore()), riga.linea);
  riga.valori.emplace_back("Cod", std::move(letto).Valore());
  return primo || Seguito(controllo, dati, visto->second, riga);
}

void Importazione::ControllaRiga(Controllo& controllo, const TabellaCsv::Riga& dati,
                                 const std::string& tabella) const {
  EsitoImporta& esito = controllo.esito;
  RigaImporta riga;
  riga.linea = dati.linea;
  riga.tabella = tabella;
  if (!LeggiCodice(controllo, dati, riga)) {
    ++esito.errate;
    return;
  }
  riga.nuova = !controllo.contesto.Memorizzato(tabella, riga.Testo("Cod"));
  if (!riga.nuova && !controllo.opzioni.aggiornaEsistenti) {
    ++esito.saltate;
    return;
  }
  std::size_t errori = LeggiCampi(controllo, dati, riga);
  if (errori == 0 && genere_.controlla) {
    for (auto& motivo : genere_.controlla(controllo.contesto, riga)) {
      const auto colonna = corrispondenze_->Colonna(motivo.campo);
      controllo.Errore(riga, colonna ? tabella_.nomi[*colonna] : motivo.campo,
                       colonna ? dati.campi[*colonna] : std::string(), std::move(motivo.motivo));
      ++errori;
    }
  }
  if (errori > 0) {
    ++esito.errate;
    return;
  }
  ++(riga.seguito ? esito.seguiti : riga.nuova ? esito.nuove : esito.aggiornate);
  if (!riga.seguito) controllo.contesto.Accolta(riga);
  controllo.buone.push_back(std::move(riga));
}

void Importazione::ControllaRighe(Controllo& controllo) const {
  EsitoImporta& esito = controllo.esito;
  if (!Completo(controllo)) return;
  esito.lette = tabella_.righe.size();
  controllo.stili = Stili();
  const std::size_t colonnaCodice = *corrispondenze_->Colonna("Cod");
  const auto tabellaDi = [&](const TabellaCsv::Riga& dati) {
    return genere_.tabellaDi ? genere_.tabellaDi(std::string(Rifila(dati.campi[colonnaCodice])))
                             : genere_.tabelle.front();
  };
  for (const auto& tabella : genere_.tabelle) {
    for (const auto& dati : tabella_.righe) {
      if (tabellaDi(dati) != tabella) continue;
      ControllaRiga(controllo, dati, tabella);
      if (!controllo.Avanza()) return;
    }
  }
  std::stable_sort(
      esito.errori.begin(), esito.errori.end(),
      [](const ErroreImporta& a, const ErroreImporta& b) { return a.linea < b.linea; });
}

EsitoImporta Importazione::Controlla(const OpzioniImporta& opzioni) {
  Controllo controllo(ambiente_);
  controllo.opzioni = opzioni;
  controllo.avanzamento = ambiente_.Dialogo().Avvia(
      "Controllo di " + genere_.titolo, static_cast<std::int64_t>(tabella_.righe.size()));
  ControllaRighe(controllo);
  return std::move(controllo.esito);
}

/// Writes one line; the error is another station that has the record in edit.
Esito<bool> Importazione::ScriviRiga(const RigaImporta& riga) {
  Archivio& archivio = ambiente_.ArchivioDi("tessarc");
  if (riga.seguito) {
    // The record was written with an earlier line.
  } else if (riga.nuova) {
    archivio.Inserisci(riga.tabella, riga.valori);
  } else {
    const std::string codice = riga.Testo("Cod");
    Rs record = archivio.Recordset("select * from " + riga.tabella + " where " +
                                   sql::Criterio("Cod", "=", codice));
    if (auto preso = record.Edit(); !preso) {
      return Errore{"il codice " + codice + " (" + riga.tabella + ") è in modifica " +
                    preso.Errore().Descrizione() +
                    ": non è stato scritto nulla, riprovare quando è libero"};
    }
    for (const auto& [campo, valore] : riga.valori) {
      if (!UgualeTesto(campo, "Cod")) record.Imposta(campo, valore);
    }
    record.Update();
  }
  if (genere_.conScrittura) genere_.conScrittura(ambiente_, riga);
  return true;
}

Esito<EsitoImporta> Importazione::Importa(const OpzioniImporta& opzioni) {
  Controllo controllo(ambiente_);
  EsitoImporta& esito = controllo.esito;
  controllo.opzioni = opzioni;
  controllo.avanzamento = ambiente_.Dialogo().Avvia(
      "Importazione di " + genere_.titolo, static_cast<std::int64_t>(2 * tabella_.righe.size()));
  try {
    // The check stands inside, so that what it found still holds when the lines are written.
    Transazione transazione(ambiente_.Basi(), Transazione::Ambito::Tessarc);
    ControllaRighe(controllo);
    const bool errata = !esito.errori.empty() && (esito.lette == 0 || !opzioni.escludiErrate);
    if (esito.annullata || errata || controllo.buone.empty()) return std::move(esito);
    for (const auto& riga : controllo.buone) {
      if (auto scritta = ScriviRiga(riga); !scritta) return scritta.Errore();
      if (!controllo.Avanza()) return std::move(esito);
    }
    transazione.Conferma();
  } catch (const ErroreArchivio& errore) {
    return Errore{"importazione di " + genere_.titolo +
                  " non riuscita: non è stato scritto nulla.\n" + errore.what()};
  }
  esito.scritta = true;
  corrispondenze_->Ricorda();
  return std::move(esito);
}

PulsanteArchivio PulsanteImporta(const std::string& genere) {
  PulsanteArchivio pulsante;
  pulsante.nome = "ImportaCsv";
  pulsante.testo = "Importa da file";
  pulsante.conRecord = false;
  pulsante.azione = [genere](ContestoArchivio& contesto) {
    if (contesto.apri) contesto.apri({.funzione = "Importa", .codice = genere});
    return std::vector<std::string>{};
  };
  return pulsante;
}

}  // namespace fenalto::archives
