// Confirming and deleting the card of an asset.
#include <algorithm>

#include "assets/CespitiInterno.h"
#include "core/archives/CodiciNoti.h"
#include "core/records/Conferma.h"
#include "core/records/RigheInTabella.h"
#include "core/sql/Criterio.h"
#include "core/values/Testo.h"

namespace fenalto::assets {

std::optional<Rifiuto> Cespiti::Interno::Controlla() {
  if (std::ranges::find(righe.Tutte(), kCosto, &MovimentoCespite::cau) == righe.Tutte().end()) {
    return Rifiuto{"Manca la registrazione del costo originario", "PNuovaRiga"};
  }
  if (testa.Testo("Cat").empty()) return Rifiuto{"manca categoria", "Cat"};
  if (testa.Leggi("Dal").Data().Nulla()) return Rifiuto{"manca data entrata in funzione", "Dal"};
  if (auto rifiuto = RifiutoRiferimento()) return rifiuto;
  return RifiutoCodici();
}

std::optional<Rifiuto> Cespiti::Interno::RifiutoRiferimento() const {
  const std::string riferimento(Rifila(testa.Testo("CespCorr")));
  if (riferimento.empty()) return std::nullopt;
  const std::string numero = testa.Testo("NCesp");
  if (riferimento == numero) {
    return Rifiuto{"Il 'cespite di riferimento' non può essere uguale al 'N.Cespite'", "CespCorr"};
  }
  if (documento.Nuovo()) return std::nullopt;
  // One that isn't a number is told with the unknown codes.
  if (riferimento.find_first_not_of("0123456789") != std::string::npos) return std::nullopt;
  const bool incrociato = ambiente.Esiste(
      "tessarc", kTabella,
      {{"NCesp", Valore(riferimento).Intero()}, {"CespCorr", testa.Leggi("NCesp").Intero()}});
  if (!incrociato) return std::nullopt;
  return Rifiuto{"il cespite " + riferimento + " ha gia il riferimento a questo cespite",
                 "CespCorr"};
}

std::optional<Rifiuto> Cespiti::Interno::RifiutoCodici() const {
  for (const archives::CampoDiCodice& campo :
       {archives::CampoDiCodice{"Cat", "Categoria", "categorieCespiti"},
        archives::CampoDiCodice{"CespCorr", "Cespite di riferimento", "cespiti"}}) {
    if (!documento.Nuovo() && !testa.Modificata(campo.campo)) continue;
    if (auto ignoto = archives::CodiceIgnoto(ambiente, campo, testa.Testo(campo.campo))) {
      return ignoto;
    }
  }
  return std::nullopt;
}

std::string Cespiti::Interno::Cambiato() const {
  if (documento.Nuovo()) return {};
  const Rs rs = Tessarc().Recordset("select * from Cespiti where " +
                                    sql::Criterio("NCesp", "=", letto.nCesp));
  const std::string nome = "il cespite n. " + std::to_string(letto.nCesp);
  if (rs.Eof()) return nome + " è stato eliminato mentre era aperto";
  if (records::LeggiRiga(rs, CampiCespite()) == letto &&
      LeggiMovimenti(ambiente, letto.nCesp) == righeLette) {
    return {};
  }
  return nome +
         " è stato cambiato mentre era aperto, da un'altra funzione o stazione: abbandonarlo e "
         "riaprirlo";
}

Cespite Cespiti::Interno::DaTesta() const {
  Cespite cespite = letto;
  for (const auto& campo : CampiCespite()) {
    if (!UgualeTesto(campo.nome, "CespCorr")) campo.scrivi(cespite, testa.Leggi(campo.nome));
  }
  cespite.cespCorr = Valore(testa.Testo("CespCorr")).Intero();
  return cespite;
}

std::string Cespiti::Interno::Scrivi() {
  // Another station may have erased a code, or made the same reference, since the checks.
  if (std::string cambiato = Cambiato(); !cambiato.empty()) return cambiato;
  if (const auto rifiuto = RifiutoRiferimento()) return rifiuto->messaggio;
  if (const auto ignoto = RifiutoCodici()) return ignoto->messaggio;
  Cespite cespite = DaTesta();
  if (documento.Nuovo()) {
    cespite.nCesp = ambiente.Max("NCesp", kTabella, {}, Tessarc()).Intero() + 1;
  } else {
    records::EliminaRighe(Tessarc(), kTabella, {{"NCesp", cespite.nCesp}});
  }
  Tessarc().Inserisci(kTabella, records::Valori(cespite, CampiCespite()));
  records::EliminaRighe(Tessarc(), kTabellaRighe, {{"NCesp", cespite.nCesp}});
  records::ScriviRighe(
      Tessarc(), kTabellaRighe, righe.Tutte(), righe.Campi(),
      {{"NCesp", cespite.nCesp}, {"Cat", cespite.cat}, {"CespCorr", cespite.cespCorr}});
  numeroConfermato = cespite.nCesp;
  return {};
}

bool Cespiti::Conferma(std::string* campo) {
  Interno& io = *interno_;
  if (io.Ferma()) return false;
  const bool nuovo = io.documento.Nuovo();
  std::vector<std::string_view> numerazioni;
  if (nuovo) numerazioni.emplace_back("CESPITI");
  const bool scritto = records::Esegui(
      io.ambiente, {.nonRiuscita = "conferma del cespite non riuscita: ",
                    .dopoErrore = "\nNon è stato scritto nulla: il cespite è ancora sullo schermo, "
                                  "si può riprovare",
                    .numerazioni = numerazioni,
                    .ambito = Transazione::Ambito::Tessarc,
                    .prima = [&] { return !io.documento.Rifiuta(io.Controlla(), campo); },
                    .scrivi = [&] { return io.Scrivi(); }});
  if (!scritto) return false;
  io.Chiudi();
  if (nuovo) io.ambiente.AvvisoNumero("CESPITE", io.numeroConfermato, "annotare il numero");
  return true;
}

std::int64_t Cespiti::NumeroConfermato() const {
  return interno_->numeroConfermato;
}

bool Cespiti::Elimina() {
  Interno& io = *interno_;
  if (io.Ferma() || io.documento.Nuovo()) return false;
  if (!io.ambiente.Dialogo().Conferma("Conferma eliminazione DOCUMENTO ?")) return false;
  const auto elimina = [&]() -> std::string {
    if (std::string cambiato = io.Cambiato(); !cambiato.empty()) return cambiato;
    if (io.ambiente.Esiste("tessarc", kTabella, {{"CespCorr", io.letto.nCesp}})) {
      return "Non si può eliminare: ci sono altri cespiti che hanno il 'cespite di riferimento' ";
    }
    records::EliminaRighe(io.Tessarc(), kTabellaRighe, {{"NCesp", io.letto.nCesp}});
    records::EliminaRighe(io.Tessarc(), kTabella, {{"NCesp", io.letto.nCesp}});
    return {};
  };
  const bool eliminato =
      records::Esegui(io.ambiente, {.nonRiuscita = "eliminazione del cespite non riuscita: ",
                                    .dopoRifiuto = "",
                                    .ambito = Transazione::Ambito::Tessarc,
                                    .scrivi = elimina});
  if (eliminato) io.Chiudi();
  return eliminato;
}

}  // namespace fenalto::assets
