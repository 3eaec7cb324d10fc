// The part of a result set that changes rows.
#include <algorithm>

#include "core/store/Rs.h"
#include "core/store/RsInterno.h"
#include "core/store/Scrittura.h"
#include "core/values/Testo.h"

namespace fenalto {

using Causa = ErroreArchivio::Causa;

namespace {

/// Statement for the row of the identity bound to it: the identity, then `campi`.
Preparata LeggiDa(DatiArchivio& dati, const TabellaArchivio& tabella, const std::string& campi) {
  return dati.Prepara("SELECT " + std::string(dati.Dialetto().Riga()) + campi + " FROM " +
                      tabella.vista.nomeMotore + DoveRiga(dati.Dialetto(), 1));
}

}  // namespace

const TabellaArchivio& Rs::Interno::Tabella() const {
  dati->Verifica();
  const TabellaArchivio* tabella =
      piano->istr.tabellaBase.empty() ? nullptr : dati->catalogo.Completa(piano->istr.tabellaBase);
  if (tabella == nullptr) {
    throw ErroreArchivio(Causa::Sql, "il risultato di «" + testo + "» non si può modificare");
  }
  return *tabella;
}

std::optional<std::vector<Valore>> Rs::Interno::LeggiChiave(std::int64_t identita) {
  const TabellaArchivio& tabella = Tabella();
  std::string campi;
  for (const std::string& nome : tabella.vista.chiave) campi += ", " + dati->Dialetto().Nome(nome);
  const Preparata lettura = LeggiDa(*dati, tabella, campi);
  lettura.Motore().Lega(1, identita);
  dati->nucleo->PrimaDiEseguire();
  if (!dati->nucleo->PrimoPasso(lettura)) return std::nullopt;
  std::vector<Valore> chiave;
  for (std::size_t i = 0; i < tabella.vista.chiave.size(); ++i) {
    const sql::ColonnaCatalogo* colonna = tabella.vista.Colonna(tabella.vista.chiave[i]);
    chiave.push_back(lettura.Motore().Campo(static_cast<int>(i) + 1,
                                            colonna != nullptr ? colonna->tipo : Tipo::Testo));
  }
  return chiave;
}

/// A row's identity may be given to another row after its deletion; its key tells them apart.
bool Rs::Interno::ChiaveCorrisponde(const std::vector<Valore>& chiave) const {
  const TabellaArchivio& tabella = Tabella();
  const auto& colonne = piano->istr.colonne;
  for (std::size_t i = 0; i < chiave.size(); ++i) {
    for (std::size_t c = 0; c < colonne.size(); ++c) {
      if (UgualeTesto(colonne[c].tabella, tabella.vista.nome) &&
          UgualeTesto(colonne[c].colonna, tabella.vista.chiave[i]) &&
          !(righe.Campo(pos, c) == chiave[i])) {
        return false;
      }
    }
  }
  return true;
}

std::string Rs::Interno::TestoChiave(const std::vector<Valore>& chiave,
                                     std::int64_t identita) const {
  if (chiave.empty()) return "riga " + std::to_string(identita);
  std::string intera;
  for (std::size_t i = 0; i < chiave.size(); ++i) {
    if (i > 0) intera += '|';
    intera += chiave[i].Testo();
  }
  return intera;
}

std::optional<std::vector<Valore>> Rs::Interno::Rileggi(std::int64_t identita) {
  // The query itself, narrowed to the row, so that columns of joined tables are read anew too.
  const std::size_t ultima = piano->istr.colonne.size();
  std::string sql = "WITH q(";
  for (std::size_t c = 0; c <= ultima; ++c) {
    sql += c == 0 ? "c" : ",c";
    sql += std::to_string(c);
  }
  const std::size_t parametro = piano->istr.parametri.size() + 1;
  sql += ") AS (" + piano->istr.sql + ") SELECT * FROM q WHERE c" + std::to_string(ultima) + " = ";
  dati->Dialetto().Parametro(sql, parametro);
  const Preparata lettura = dati->Prepara(sql);
  LegaLetterali(lettura.Motore(), piano->istr, forma, testo);
  lettura.Motore().Lega(static_cast<int>(parametro), identita);
  dati->nucleo->PrimaDiEseguire();
  if (!dati->nucleo->PrimoPasso(lettura)) return RileggiDaTabella(identita);
  std::vector<Valore> valori;
  valori.reserve(ultima);
  for (std::size_t c = 0; c < ultima; ++c) {
    valori.push_back(lettura.Motore().Campo(static_cast<int>(c), piano->istr.colonne[c].tipo));
  }
  return valori;
}

/// For a row that the query's conditions leave out, as a new one may be: the table's own columns.
std::optional<std::vector<Valore>> Rs::Interno::RileggiDaTabella(std::int64_t identita) {
  const TabellaArchivio& tabella = Tabella();
  const auto& colonne = piano->istr.colonne;
  std::string campi;
  for (const sql::ColonnaUscita& colonna : colonne) {
    campi += UgualeTesto(colonna.tabella, tabella.vista.nome)
                 ? ", " + dati->Dialetto().Nome(colonna.colonna)
                 : ", NULL";
  }
  const Preparata lettura = LeggiDa(*dati, tabella, campi);
  lettura.Motore().Lega(1, identita);
  dati->nucleo->PrimaDiEseguire();
  if (!dati->nucleo->PrimoPasso(lettura)) return std::nullopt;
  std::vector<Valore> valori;
  for (std::size_t c = 0; c < colonne.size(); ++c) {
    valori.push_back(lettura.Motore().Campo(static_cast<int>(c) + 1, colonne[c].tipo));
  }
  return valori;
}

bool Rs::Modificabile() const {
  return interno_ && !interno_->piano->istr.tabellaBase.empty();
}

ModoModifica Rs::EditMode() const {
  return interno_ ? interno_->modo : ModoModifica::Nessuna;
}

void Rs::AddNew() {
  if (!interno_) throw ErroreArchivio(Causa::Sql, "il risultato è chiuso");
  CancelUpdate();
  const TabellaArchivio& tabella = interno_->Tabella();
  const auto& colonne = Colonne();
  interno_->tampone.assign(colonne.size(), Valore());
  interno_->toccati.assign(colonne.size(), false);
  for (std::size_t c = 0; c < colonne.size(); ++c) {
    if (!UgualeTesto(colonne[c].tabella, tabella.vista.nome)) continue;
    const sql::ColonnaCatalogo* colonna = tabella.vista.Colonna(colonne[c].colonna);
    if (colonna != nullptr && !colonna->ammetteNull && !colonna->contatore) {
      interno_->tampone[c] = Valore::Vuoto(colonna->tipo);
    }
  }
  interno_->modo = ModoModifica::Aggiunta;
}

Esito<bool, Detentore> Rs::Edit() {
  if (!interno_) throw ErroreArchivio(Causa::Sql, "il risultato è chiuso");
  CancelUpdate();
  Interno& io = *interno_;
  io.VerificaRiga();
  const std::string tabella = io.Tabella().vista.nome;
  const std::int64_t identita = io.righe.Identita(io.pos);
  const auto chiave = io.LeggiChiave(identita);
  if (!chiave || !io.ChiaveCorrisponde(*chiave)) return Detentore{};
  auto preso = io.dati->nucleo->Blocchi().Record(tabella, io.TestoChiave(*chiave, identita));
  if (!preso) return preso.Errore();
  // Between reading the key and holding it, another station may have done its work.
  if (io.LeggiChiave(identita) != chiave) return Detentore{};
  auto riga = io.Rileggi(identita);
  if (!riga) return Detentore{};
  io.righe.Sostituisci(io.pos, *riga);
  io.indice.Svuota();
  io.tampone = std::move(*riga);
  io.toccati.assign(io.tampone.size(), false);
  io.blocco = std::move(preso).Valore();
  io.modo = ModoModifica::Modifica;
  return true;
}

void Rs::Imposta(std::string_view nome, const Valore& valore) {
  if (EditMode() == ModoModifica::Nessuna) {
    throw ErroreArchivio(Causa::Sql,
                         "il campo «" + std::string(nome) + "» si scrive solo dopo AddNew o Edit");
  }
  const auto indice = Indice(nome);
  const TabellaArchivio& tabella = interno_->Tabella();
  if (!indice || !UgualeTesto(Colonne()[*indice].tabella, tabella.vista.nome)) {
    throw ErroreArchivio(Causa::Sql, "il campo «" + std::string(nome) +
                                         "» non si scrive nel risultato di «" + interno_->testo +
                                         "»");
  }
  const std::size_t colonna = ColonnaScrivibile(tabella, Colonne()[*indice].colonna);
  if (tabella.vista.colonne[colonna].contatore) {
    throw ErroreArchivio(Causa::Sql, "il contatore «" + std::string(nome) + "» si riempie da sé");
  }
  interno_->tampone[*indice] = PerColonna(tabella, colonna, valore);
  interno_->toccati[*indice] = true;
}

void Rs::Interno::ScriviModifica() {
  const TabellaArchivio& tabella = Tabella();
  std::vector<CampoScritto> campi;
  for (std::size_t c = 0; c < tampone.size(); ++c) {
    if (!toccati[c]) continue;
    campi.emplace_back(ColonnaScrivibile(tabella, piano->istr.colonne[c].colonna), tampone[c]);
  }
  const std::int64_t identita = righe.Identita(pos);
  if (campi.empty()) return;
  if (!ModificaRiga(*dati, tabella, campi, identita)) {
    throw ErroreArchivio(Causa::Altro, "il record di " + tabella.vista.nome +
                                           " è stato eliminato nel frattempo: la modifica non è "
                                           "stata registrata");
  }
  if (auto riga = Rileggi(identita)) righe.Sostituisci(pos, *riga);
  indice.Svuota();
}

void Rs::Interno::ScriviAggiunta() {
  const TabellaArchivio& tabella = Tabella();
  std::vector<CampoScritto> campi;
  for (std::size_t c = 0; c < tampone.size(); ++c) {
    if (!toccati[c]) continue;
    campi.emplace_back(ColonnaScrivibile(tabella, piano->istr.colonne[c].colonna), tampone[c]);
  }
  if (rigaPronta) {
    // A long result isn't read to its end for one new row: it runs again when more is asked for.
    Interrompi();
    troncata = true;
  }
  const std::int64_t identita = InserisciRiga(*dati, tabella, campi);
  auto riga = Rileggi(identita);
  if (!riga) riga = tampone;
  if (troncata) {
    righe.Svuota();
    scartate = true;
    precedenti = -1;
    troncata = false;
  }
  righe.Accoda(*riga, identita);
  indice.Svuota();
  pos = righe.Numero() - 1;
}

void Rs::Interno::FineModifica() noexcept {
  modo = ModoModifica::Nessuna;
  tampone.clear();
  blocco.Rilascia();
}

void Rs::Update() {
  switch (EditMode()) {
    case ModoModifica::Nessuna:
      throw ErroreArchivio(Causa::Sql, "Update senza AddNew o Edit");
    case ModoModifica::Modifica:
      interno_->ScriviModifica();
      break;
    case ModoModifica::Aggiunta:
      interno_->ScriviAggiunta();
      break;
  }
  interno_->FineModifica();
}

void Rs::CancelUpdate() {
  if (interno_ && interno_->modo != ModoModifica::Nessuna) interno_->FineModifica();
}

void Rs::Delete() {
  if (!interno_) throw ErroreArchivio(Causa::Sql, "il risultato è chiuso");
  Interno& io = *interno_;
  if (io.modo == ModoModifica::Aggiunta) CancelUpdate();
  io.VerificaRiga();
  const TabellaArchivio& tabella = io.Tabella();
  const std::int64_t identita = io.righe.Identita(io.pos);
  const auto chiave = io.LeggiChiave(identita);
  if (chiave && io.ChiaveCorrisponde(*chiave)) {
    Blocco blocco;
    if (io.modo != ModoModifica::Modifica) {
      auto preso =
          io.dati->nucleo->Blocchi().Record(tabella.vista.nome, io.TestoChiave(*chiave, identita));
      if (!preso) {
        throw ErroreArchivio(Causa::Occupato, "il record di " + tabella.vista.nome +
                                                  " è in modifica " + preso.Errore().Descrizione());
      }
      blocco = std::move(preso).Valore();
    }
    EliminaRiga(*io.dati, tabella, identita);
  }
  if (io.modo != ModoModifica::Nessuna) io.FineModifica();
  io.righe.Elimina(io.pos);
  io.indice.Svuota();
  if (io.Eof() && io.rigaPronta) io.Avanza();
}

}  // namespace fenalto
