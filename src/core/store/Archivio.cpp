#include "core/store/Archivio.h"

#include "core/store/ArchivioInterno.h"
#include "core/store/RsInterno.h"
#include "core/store/Scrittura.h"

namespace fenalto {
namespace {

using Causa = ErroreArchivio::Causa;

sql::Forma FormaOErrore(std::string_view sql) {
  auto forma = sql::FormaDi(sql);
  if (!forma) throw ErroreArchivio(Causa::Sql, forma.Errore().Messaggio(sql));
  return std::move(forma).Valore();
}

void VerificaSelezione(const sql::Istruzione& istruzione, std::string_view sql) {
  if (istruzione.genere == sql::Istruzione::Genere::Selezione) return;
  throw ErroreArchivio(Causa::Sql,
                       "un risultato si apre solo su SELECT, non su «" + std::string(sql) + "»");
}

}  // namespace

Archivio::Archivio(std::unique_ptr<Interno> interno) : interno_(std::move(interno)) {}

Archivio::~Archivio() {
  Chiudi();
}

Rs Archivio::Recordset(std::string_view sql) {
  DatiArchivio& dati = *interno_->dati;
  sql::Forma forma = FormaOErrore(sql);
  Preparata preparata = dati.PreparaForma(sql, forma);
  VerificaSelezione(preparata.Disegno()->istr, sql);
  auto interno =
      std::make_unique<Rs::Interno>(interno_->dati, std::move(preparata), sql, std::move(forma));
  interno->Esegui();
  return Rs(std::move(interno));
}

Rs Archivio::Vista(std::string_view nome) {
  if (interno_->dati->catalogo.Vista(nome) == nullptr) {
    throw ErroreArchivio(Causa::Sql, "non c'è nessuna interrogazione «" + std::string(nome) +
                                         "» per «" + interno_->dati->nomeFile + "»");
  }
  return Recordset(nome);
}

std::int64_t Archivio::Esegui(std::string_view sql) {
  DatiArchivio& dati = *interno_->dati;
  const sql::Forma forma = FormaOErrore(sql);
  const Preparata preparata = dati.PreparaForma(sql, forma);
  const sql::Istruzione& istruzione = preparata.Disegno()->istr;
  if (istruzione.genere == sql::Istruzione::Genere::Selezione) {
    throw ErroreArchivio(Causa::Sql, "Esegui non accetta una SELECT: «" + std::string(sql) + "»");
  }
  LegaLetterali(preparata.Motore(), istruzione, forma, sql);
  return dati.nucleo->EseguiAzione(preparata, dati,
                                   istruzione.tabelle.empty() ? "" : istruzione.tabelle.front());
}

Valore Archivio::Singolo(std::string_view sql) {
  DatiArchivio& dati = *interno_->dati;
  const sql::Forma forma = FormaOErrore(sql);
  const Preparata preparata = dati.PreparaForma(sql, forma);
  const sql::Istruzione& istruzione = preparata.Disegno()->istr;
  VerificaSelezione(istruzione, sql);
  LegaLetterali(preparata.Motore(), istruzione, forma, sql);
  dati.nucleo->PrimaDiEseguire();
  if (!dati.nucleo->PrimoPasso(preparata)) return {};
  return preparata.Motore().Campo(0, istruzione.colonne[0].tipo);
}

std::int64_t Archivio::Inserisci(std::string_view tabella, const std::vector<Coppia>& campi) {
  DatiArchivio& dati = *interno_->dati;
  const TabellaArchivio& completa = dati.Tabella(tabella);
  std::vector<CampoScritto> scritti;
  scritti.reserve(campi.size());
  for (const auto& [nome, valore] : campi) {
    scritti.emplace_back(ColonnaScrivibile(completa, nome), valore);
  }
  return InserisciRiga(dati, completa, scritti);
}

void Archivio::CollegaTabella(const std::filesystem::path& percorso, std::string_view tabella) {
  DatiArchivio& dati = *interno_->dati;
  dati.Verifica();
  const TabellaArchivio& altra = dati.nucleo->Trova(percorso).Tabella(tabella);
  const TabellaArchivio* propria = dati.catalogo.Completa(tabella);
  if (propria != nullptr && !propria->collegata) {
    throw ErroreArchivio(
        ErroreArchivio::Causa::Sql,
        "«" + dati.nomeFile + "» ha già una tabella «" + std::string(tabella) + "»");
  }
  dati.catalogo.Collega(altra);
  dati.cache.Svuota();
}

const std::filesystem::path& Archivio::Percorso() const {
  return interno_->dati->percorso;
}

const sql::Catalogo& Archivio::Catalogo() const {
  return interno_->dati->catalogo;
}

void Archivio::Chiudi() {
  DatiArchivio& dati = *interno_->dati;
  if (dati.chiuso) return;
  dati.chiuso = true;
  dati.nucleo->Togli(&dati);
  dati.cache.Svuota();
}

}  // namespace fenalto
