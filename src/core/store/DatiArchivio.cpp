#include <charconv>

#include "core/store/NucleoBasi.h"

namespace fenalto {

using Causa = ErroreArchivio::Causa;

const sql::Dialetto& DatiArchivio::Dialetto() const {
  return nucleo->Motore().Dialetto();
}

void DatiArchivio::Verifica() const {
  if (chiuso) throw ErroreArchivio(Causa::Mancante, "l'archivio «" + nomeFile + "» è chiuso");
}

const TabellaArchivio& DatiArchivio::Tabella(std::string_view nome) const {
  Verifica();
  const TabellaArchivio* tabella = catalogo.Completa(nome);
  if (tabella != nullptr) return *tabella;
  throw ErroreArchivio(Causa::Sql,
                       "in «" + nomeFile + "» non c'è la tabella «" + std::string(nome) + "»");
}

Preparata DatiArchivio::Prepara(const std::string& sqlMotore, const std::string& diBase) {
  Verifica();
  // No shape of the dialect begins so.
  const std::string chiave = '\x01' + sqlMotore;
  auto voce = cache.Cerca(chiave);
  if (!voce) voce = cache.Aggiungi(chiave, nullptr, sqlMotore);
  return {nucleo->Connessione(), std::move(voce), diBase.empty() ? base : diBase};
}

Preparata DatiArchivio::PreparaForma(std::string_view testo, const sql::Forma& forma) {
  Verifica();
  auto voce = cache.Cerca(forma.chiave);
  if (!voce) {
    auto tradotta = sql::Traduci(testo, catalogo, Dialetto());
    if (!tradotta) throw ErroreArchivio(Causa::Sql, tradotta.Errore().Messaggio(testo));
    auto piano = std::make_shared<const PianoIstruzione>(std::move(tradotta).Valore());
    std::string sql = piano->istr.sql;
    voce = cache.Aggiungi(forma.chiave, std::move(piano), std::move(sql));
  }
  return {nucleo->Connessione(), std::move(voce), base};
}

void LegaLetterali(engine::Istruzione& istruzione, const sql::Istruzione& piano,
                   const sql::Forma& forma, std::string_view testo) {
  for (std::size_t i = 0; i < piano.parametri.size(); ++i) {
    const sql::ParametroSql& parametro = piano.parametri[i];
    const sql::Letterale& letterale = forma.letterali[parametro.letterale];
    const int indice = static_cast<int>(i) + 1;
    // The two commonest kinds need no Valore between.
    if (parametro.legame == sql::Legame::Testo &&
        letterale.genere == sql::Letterale::Genere::Testo) {
      istruzione.LegaTesto(indice, letterale.testo);
      continue;
    }
    if (parametro.legame == sql::Legame::Intero &&
        letterale.genere == sql::Letterale::Genere::Numero) {
      std::int64_t numero = 0;
      const char* fine = letterale.testo.data() + letterale.testo.size();
      const auto letto = std::from_chars(letterale.testo.data(), fine, numero);
      if (letto.ec == std::errc() && letto.ptr == fine) {
        istruzione.LegaIntero(indice, numero);
        continue;
      }
    }
    const auto valore = sql::ValoreLegato(letterale, parametro.legame);
    if (!valore) throw ErroreArchivio(Causa::Sql, valore.Errore().Messaggio(testo));
    istruzione.Lega(indice, valore.Valore());
  }
}

}  // namespace fenalto
