#include "core/archives/ElencoArchivio.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "core/archives/LetturaElenco.h"
#include "core/sql/Criterio.h"
#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"

namespace fenalto::archives {

namespace {

bool Stesso(const std::string& a, const std::string& b) {
  return UgualeTesto(a, b);
}

const records::CampoForma* Dichiarato(const DescrizioneArchivio& d, const std::string& nome) {
  const auto campo =
      std::find_if(d.campi.begin(), d.campi.end(),
                   [&](const records::CampoForma& c) { return Stesso(c.nome, nome); });
  return campo == d.campi.end() ? nullptr : &*campo;
}

bool Extra(const DescrizioneArchivio& d, const std::string& nome) {
  return std::any_of(d.campiExtra.begin(), d.campiExtra.end(),
                     [&](const auto& extra) { return Stesso(extra.first, nome); });
}

}  // namespace

std::vector<records::CampoForma> ColonneElenco(const DescrizioneArchivio& descrizione) {
  std::vector<records::CampoForma> colonne;
  const auto prima = [&](const std::string& nome, const char* didascalia) {
    if (nome.empty()) return;
    const records::CampoForma* campo = Dichiarato(descrizione, nome);
    colonne.push_back(campo != nullptr ? *campo : records::CampoForma{nome, didascalia});
    if (colonne.back().didascalia.empty()) colonne.back().didascalia = didascalia;
  };
  prima("Cod", "codice");
  prima(descrizione.campoDescrizione, "descrizione");
  for (const records::CampoForma& campo : descrizione.campi) {
    if (!campo.elenco || Extra(descrizione, campo.nome) || Stesso(campo.nome, "Cod") ||
        Stesso(campo.nome, descrizione.campoDescrizione)) {
      continue;
    }
    colonne.push_back(campo);
  }
  return colonne;
}

std::string MostraColonna(const records::CampoForma& colonna, const Valore& valore) {
  switch (valore.Tipo()) {
    case Tipo::Booleano:
      return valore.Booleano() ? "sì" : "no";
    case Tipo::Importo:
      return ScriviImporto(valore.Importo(), colonna.decimali);
    case Tipo::Data:
      return valore.Data().Testo();
    default:
      return valore.Testo();
  }
}

LetturaElenco::LetturaElenco(Ambiente& ambiente, const DescrizioneArchivio& descrizione,
                             const FiltroElenco& filtro)
    : archivio_(ambiente.ArchivioDi(descrizione.chiave)), colonne_(ColonneElenco(descrizione)) {
  const sql::TabellaCatalogo* tabella = archivio_.Catalogo().Tabella(descrizione.tabella);
  for (std::size_t c = 0; c < colonne_.size(); ++c) {
    const std::string& nome = colonne_[c].nome;
    voci_ += (c == 0 ? "" : ", ") + nome;
    if (c >= filtro.colonne.size() || filtro.colonne[c].empty()) continue;
    const sql::ColonnaCatalogo* colonna = tabella != nullptr ? tabella->Colonna(nome) : nullptr;
    if (colonna != nullptr && colonna->tipo == Tipo::Testo) {
      Aggiungi(sql::CriterioContiene(nome, filtro.colonne[c]));
    } else {
      mostrate_.emplace_back(c, PerRicerca(filtro.colonne[c]));
    }
  }
  tabella_ = descrizione.tabella;
  if (!descrizione.filtro.empty()) Aggiungi("(" + descrizione.filtro + ")");
  if (filtro.testo.empty()) return;
  std::string cercata = sql::CriterioContiene("Cod", filtro.testo);
  if (!descrizione.campoDescrizione.empty()) {
    cercata += " or " + sql::CriterioContiene(descrizione.campoDescrizione, filtro.testo);
  }
  Aggiungi("(" + cercata + ")");
}

void LetturaElenco::Aggiungi(const std::string& condizione) {
  dove_ += (dove_.empty() ? "" : " and ") + condizione;
}

void LetturaElenco::Leggi(const std::string& confine, Verso verso, int massimo,
                          const std::function<bool(std::vector<Valore>)>& riga) {
  std::string sql = "select ";
  // What a column shows is known only here: then the rows are counted as they pass.
  if (massimo > 0 && mostrate_.empty()) sql += "top " + std::to_string(massimo) + " ";
  sql += voci_ + " from " + tabella_;
  std::string dove = dove_;
  if (!confine.empty()) {
    const std::string oltre = sql::Criterio("Cod", verso == Verso::Avanti ? ">" : "<", confine);
    dove = dove.empty() ? oltre : oltre + " and " + dove;
  }
  if (!dove.empty()) sql += " where " + dove;
  sql += " order by Cod";
  if (verso == Verso::Indietro) sql += " desc";

  int lette = 0;
  for (Rs rs = archivio_.Recordset(sql); !rs.Eof(); rs.MoveNext()) {
    std::vector<Valore> valori;
    valori.reserve(colonne_.size());
    for (std::size_t c = 0; c < colonne_.size(); ++c) valori.push_back(rs.Fields(c));
    const bool passa = std::all_of(mostrate_.begin(), mostrate_.end(), [&](const auto& cercata) {
      const auto& [c, testo] = cercata;
      return InRicerca(MostraColonna(colonne_[c], valori[c]), testo);
    });
    if (!passa) continue;
    if (!riga(std::move(valori)) || (massimo > 0 && ++lette >= massimo)) return;
  }
}

ElencoArchivio::ElencoArchivio(Ambiente& ambiente, const DescrizioneArchivio& descrizione)
    : ambiente_(ambiente), descrizione_(descrizione) {}

std::vector<std::vector<Valore>> ElencoArchivio::Pagina(const FiltroElenco& filtro,
                                                        const std::string& dopo, int massimo) {
  std::vector<std::vector<Valore>> righe;
  if (massimo <= 0) return righe;
  LetturaElenco(ambiente_, descrizione_, filtro)
      .Leggi(dopo, LetturaElenco::Verso::Avanti, massimo, [&](std::vector<Valore> riga) {
        righe.push_back(std::move(riga));
        return true;
      });
  return righe;
}

void ElencoArchivio::Comincia(const FiltroElenco& filtro) {
  filtro_ = filtro;
  ultimo_.clear();
  finita_ = false;
}

FonteElenco::Righe ElencoArchivio::Avanti() {
  auto righe = Pagina(filtro_, ultimo_, kPagina);
  finita_ = righe.size() < static_cast<std::size_t>(kPagina);
  if (!righe.empty()) ultimo_ = righe.back().front().Testo();
  return righe;
}

namespace {

std::string Vicino(LetturaElenco lettura, const std::string& codice, LetturaElenco::Verso verso) {
  std::string vicino;
  lettura.Leggi(codice, verso, 1, [&](const std::vector<Valore>& riga) {
    vicino = riga.front().Testo();
    return false;
  });
  return vicino;
}

}  // namespace

std::string ElencoArchivio::Successivo(const FiltroElenco& filtro, const std::string& codice) {
  return Vicino({ambiente_, descrizione_, filtro}, codice, LetturaElenco::Verso::Avanti);
}

std::string ElencoArchivio::Precedente(const FiltroElenco& filtro, const std::string& codice) {
  return Vicino({ambiente_, descrizione_, filtro}, codice, LetturaElenco::Verso::Indietro);
}

}  // namespace fenalto::archives
