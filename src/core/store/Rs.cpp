#include "core/store/Rs.h"

#include <algorithm>
#include <utility>

#include "core/sql/Predicato.h"
#include "core/store/RsInterno.h"
#include "core/values/Testo.h"

namespace fenalto {

using Causa = ErroreArchivio::Causa;

// --- Reading ------------------------------------------------------------------------------------

Rs::Interno::Interno(std::shared_ptr<DatiArchivio> archivio, Preparata istruzione,
                     std::string_view sql, sql::Forma letterali)
    : dati(std::move(archivio)),
      piano(istruzione.Disegno()),
      preparata(std::move(istruzione)),
      testo(sql),
      forma(std::move(letterali)) {
  righe.Prepara(piano->istr.colonne, !piano->istr.tabellaBase.empty());
}

Rs::Interno::~Interno() {
  Interrompi();
}

void Rs::Interno::Esegui() {
  LegaLetterali(preparata.Motore(), piano->istr, forma, testo);
  dati->nucleo->PrimaDiEseguire();
  rigaPronta = dati->nucleo->PrimoPasso(preparata);
  LeggiPezzo(kPezzo);
}

void Rs::Interno::LeggiPezzo(std::size_t quante) {
  try {
    if (rigaPronta) rigaPronta = preparata.Motore().Leggi(righe, quante);
  } catch (...) {
    Interrompi();
    throw;
  }
  if (!rigaPronta) {
    Interrompi();
    return;
  }
  ultimaLettura = std::chrono::steady_clock::now();
  if (!iscritto) dati->nucleo->Registra(this);
  iscritto = true;
}

void Rs::Interno::Completa() {
  while (rigaPronta) LeggiPezzo(SIZE_MAX);
}

void Rs::Interno::Interrompi() noexcept {
  rigaPronta = false;
  preparata.Restituisci();
  if (iscritto) dati->nucleo->Dimentica(this);
  iscritto = false;
}

bool Rs::Interno::Legge(std::string_view nomeMotore) const {
  return std::ranges::any_of(piano->istr.tabelle, [&](const std::string& nome) {
    const sql::TabellaCatalogo* tabella = dati->catalogo.Tabella(nome);
    return tabella == nullptr || tabella->nomeMotore == nomeMotore;
  });
}

void Rs::Interno::Riesegui() {
  Interrompi();
  dati->Verifica();
  preparata = dati->PreparaForma(testo, forma);
  righe.Svuota();
  indice.Svuota();
  scartate = false;
  troncata = false;
  precedenti = 0;
  pos = 0;
  Esegui();
}

void Rs::Interno::Avanza() {
  if (precedenti >= 0) precedenti += static_cast<std::int64_t>(righe.Numero());
  righe.Svuota();
  indice.Svuota();
  scartate = true;
  pos = 0;
  if (rigaPronta && ++pezzi % kPezziTenuti == 0) {
    preparata.Motore().LasciaMemoria();
  }
  LeggiPezzo(kPezzo);
}

void Rs::Interno::VersoPrima() {
  if (scartate) Riesegui();
  pos = 0;
}

std::int64_t Rs::Interno::Conta() {
  if (rigaPronta && righe.Numero() < kDaContare) LeggiPezzo(kDaContare - righe.Numero());
  if (rigaPronta) {
    const Preparata conteggio =
        dati->Prepara("SELECT count(*) FROM (" + piano->istr.sql + ") AS q");
    LegaLetterali(conteggio.Motore(), piano->istr, forma, testo);
    dati->nucleo->PrimaDiEseguire();
    dati->nucleo->PrimoPasso(conteggio);
    return conteggio.Motore().Campo(0, Tipo::Intero).Intero();
  }
  if (troncata || precedenti < 0) LeggiTutto();
  return precedenti + static_cast<std::int64_t>(righe.Numero());
}

void Rs::Interno::LeggiTutto() {
  if (!scartate && !troncata) {
    Completa();
    return;
  }
  const bool ferma = !Eof();
  const std::int64_t corrente = ferma && !piano->istr.tabellaBase.empty() ? righe.Identita(pos) : 0;
  std::vector<Valore> riga;
  for (std::size_t c = 0; ferma && c < piano->istr.colonne.size(); ++c) {
    riga.push_back(righe.Campo(pos, c));
  }
  const auto posto = static_cast<std::size_t>(precedenti) + pos;  // out of range when not known
  Riesegui();
  Completa();
  pos = righe.Numero();
  if (!ferma) return;
  const auto stessa = [&](std::size_t i) {
    if (!piano->istr.tabellaBase.empty()) return righe.Identita(i) == corrente;
    std::size_t c = 0;
    while (c < riga.size() && righe.Campo(i, c) == riga[c]) ++c;
    return c == riga.size();
  };
  // Where it was before, if nothing has changed: rows may be alike.
  if (posto < righe.Numero() && stessa(posto)) {
    pos = posto;
    return;
  }
  for (pos = 0; pos < righe.Numero(); ++pos) {
    if (stessa(pos)) return;
  }
  // Gone meanwhile, or never part of the query: it stays current, as the last.
  righe.Accoda(riga, corrente);
  pos = righe.Numero() - 1;
}

void Rs::Interno::VersoProssima() {
  if (Eof()) return;
  if (troncata && pos + 1 == righe.Numero()) LeggiTutto();
  ++pos;
  if (Eof() && rigaPronta) Avanza();
}

void Rs::Interno::VerificaRiga() const {
  if (!Eof()) return;
  throw ErroreArchivio(Causa::Sql, "nessun record corrente nel risultato di «" + testo + "»");
}

// --- The result set ---------------------------------------------------------------------------

Rs::Rs() = default;
Rs::Rs(std::unique_ptr<Interno> interno) : interno_(std::move(interno)) {}
Rs::Rs(Rs&&) noexcept = default;
Rs& Rs::operator=(Rs&&) noexcept = default;
Rs::~Rs() = default;

bool Rs::Aperto() const {
  return interno_ != nullptr;
}

bool Rs::Bof() const {
  return !interno_ || (interno_->righe.Numero() == 0 && !interno_->scartate);
}

bool Rs::Eof() const {
  return !interno_ || interno_->Eof();
}

std::int64_t Rs::RecordCount() {
  return interno_ ? interno_->Conta() : 0;
}

void Rs::MoveFirst() {
  if (!interno_) return;
  CancelUpdate();
  interno_->VersoPrima();
}

void Rs::MoveNext() {
  if (!interno_) return;
  if (interno_->modo != ModoModifica::Nessuna) CancelUpdate();
  interno_->VersoProssima();
}

void Rs::MoveLast() {
  if (!interno_) return;
  CancelUpdate();
  interno_->LeggiTutto();
  const std::size_t numero = interno_->righe.Numero();
  interno_->pos = numero == 0 ? 0 : numero - 1;
}

const std::vector<sql::ColonnaUscita>& Rs::Colonne() const {
  static const std::vector<sql::ColonnaUscita> kNessuna;
  return interno_ ? interno_->piano->istr.colonne : kNessuna;
}

std::optional<std::size_t> Rs::Indice(std::string_view nome) const {
  return interno_ ? interno_->piano->Indice(nome) : std::nullopt;
}

Valore Rs::Fields(std::string_view nome) const {
  if (!interno_) throw ErroreArchivio(Causa::Sql, "il risultato è chiuso");
  const auto indice = interno_->piano->Indice(nome);
  if (!indice) {
    throw ErroreArchivio(Causa::Sql, "il campo «" + std::string(nome) +
                                         "» non c'è nel risultato di «" + interno_->testo + "»");
  }
  return Fields(*indice);
}

Valore Rs::Fields(std::size_t indice) const {
  if (!interno_) throw ErroreArchivio(Causa::Sql, "il risultato è chiuso");
  if (indice >= interno_->piano->istr.colonne.size()) {
    throw ErroreArchivio(Causa::Sql, "il campo numero " + std::to_string(indice) +
                                         " non c'è nel risultato di «" + interno_->testo + "»");
  }
  if (interno_->modo != ModoModifica::Nessuna) return interno_->tampone[indice];
  interno_->VerificaRiga();
  return interno_->righe.Campo(interno_->pos, indice);
}

bool Rs::FindFirst(std::string_view criterio) {
  if (!interno_) return true;
  if (interno_->modo != ModoModifica::Nessuna) CancelUpdate();
  const auto predicato = sql::Predicato::Leggi(criterio, interno_->piano->istr.colonne);
  if (!predicato) throw ErroreArchivio(Causa::Sql, predicato.Errore().Messaggio(criterio));
  interno_->LeggiTutto();
  const engine::RigheLette& righe = interno_->righe;
  if (const auto& uguaglianze = predicato.Valore().Uguaglianze()) {
    const auto riga = interno_->indice.Prima(righe, *uguaglianze);
    if (riga) interno_->pos = *riga;
    return !riga.has_value();
  }
  std::vector<Valore> valori(interno_->piano->istr.colonne.size());
  for (std::size_t riga = 0; riga < righe.Numero(); ++riga) {
    for (std::size_t c = 0; c < valori.size(); ++c) valori[c] = righe.Campo(riga, c);
    if (predicato.Valore().Vale(valori)) {
      interno_->pos = riga;
      return false;
    }
  }
  return true;
}

void Rs::mClose() {
  interno_.reset();
}

}  // namespace fenalto
