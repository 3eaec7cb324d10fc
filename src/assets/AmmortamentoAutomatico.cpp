#include "assets/AmmortamentoAutomatico.h"

#include <algorithm>
#include <map>

#include "assets/StampaAmmortamento.h"
#include "core/records/Conferma.h"
#include "core/records/RigheInTabella.h"
#include "core/sql/Criterio.h"
#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"

namespace fenalto::assets {

namespace {

constexpr const char* kDaCompletare = "Cespiti.AmmCompl=False AND Cespiti.Dismesso=False";
constexpr const char* kNonDismessi = "Cespiti.Dismesso=False";
constexpr std::int64_t kOgniLetti = 200;  // assets between two signs of life

/// What tells two readings of the assets apart: another station may have typed a row while the
/// question stood. All rows are summed, since looking at their category takes longer.
std::string Impronta(Ambiente& ambiente) {
  std::string impronta;
  for (const char* somme :
       {"Count(*), Sum(Posi), Sum(Anno), Sum(Importo), Sum(StornoFondoDismParz) FROM MovCesp_r",
        "Count(*), Sum(NCesp), Sum(IIf(AmmCompl,1,0)), Sum(IIf(Dismesso,1,0)), Sum(CespCorr) FROM "
        "Cespiti"}) {
    const Rs rs = ambiente.ArchivioDi("tessarc").Recordset(std::string("SELECT ") + somme);
    for (std::size_t i = 0; i < rs.Colonne().size(); ++i) {
      impronta += rs.Fields(i).Testo() + "|";
    }
  }
  return impronta;
}

std::string Unisci(const char* condizione, const std::string& altra) {
  return altra.empty() ? condizione : std::string(condizione) + " AND " + altra;
}

std::map<std::string, AliquoteCategoria> LeggiCategorie(Ambiente& ambiente,
                                                        const IntervalloCategorie& categorie) {
  std::map<std::string, AliquoteCategoria> lette;
  const std::string condizione = categorie.Condizione("Cod");
  Rs rs = ambiente.ArchivioDi("tessarc").Recordset(
      "SELECT * FROM CATEGORIECESPITI" + (condizione.empty() ? "" : " WHERE " + condizione) +
      " ORDER BY Cod");
  for (; !rs.Eof(); rs.MoveNext()) {
    const std::string cod = rs.Fields("Cod").Testo();
    lette.emplace(SenzaMaiuscole(cod),
                  AliquoteCategoria{cod, rs.Fields("DescrCat").Testo(), rs.Fields("Perc").Importo(),
                                    rs.Fields("Perc1").Importo()});
  }
  return lette;
}

/// Goes through the assets of the categories that exist, with what is read of their category.
bool Scorri(Ambiente& ambiente, const SceltaAmmortamento& scelta, const char* condizione,
            const std::function<void(const Cespite&, std::span<const MovimentoCespite>,
                                     const AliquoteCategoria&)>& cespite) {
  const auto categorie = LeggiCategorie(ambiente, scelta.categorie);
  const auto avanzamento = ambiente.Dialogo().Avvia("Lettura cespiti", 0);
  std::int64_t letti = 0;
  return ScorriCespiti(ambiente, Unisci(condizione, scelta.categorie.Condizione("Cespiti.Cat")),
                       "Cespiti.NCesp",
                       [&](const Cespite& uno, std::span<const MovimentoCespite> righe) {
                         const auto categoria = categorie.find(SenzaMaiuscole(uno.cat));
                         if (categoria != categorie.end()) cespite(uno, righe, categoria->second);
                         return ++letti % kOgniLetti != 0 || avanzamento->Avanza(letti);
                       });
}

std::string Intervallo(const IntervalloCategorie& categorie) {
  return categorie.da + " a " + categorie.a;
}

LineaAmmortamento LineaDi(const VoceAmmortamento& voce, int /*anno*/) {
  LineaAmmortamento linea{voce.nCesp, voce.descrizione, voce.quota.Testo(), std::nullopt};
  if (voce.quota.esito == EsitoQuota::Quota) linea.importo = voce.quota.importo;
  if (voce.quota.completa) linea.seguito = "Ammortamento completato";
  return linea;
}

LineaAmmortamento LineaDi(const VoceStorno& voce, int anno) {
  LineaAmmortamento linea{voce.nCesp, voce.descrizione, voce.Testo(anno), std::nullopt};
  if (voce.righe != 0) linea.importo = voce.importo;
  return linea;
}

bool DaScrivere(const VoceAmmortamento& voce) {
  return voce.quota.esito == EsitoQuota::Quota || voce.quota.esito == EsitoQuota::Completo;
}

bool DaScrivere(const VoceStorno& voce) {
  return voce.righe != 0;
}

void ImpostaCompletato(Archivio& tessarc, std::int64_t nCesp, bool completato) {
  tessarc.Esegui("update Cespiti set " + sql::Criterio("AmmCompl", "=", completato) + " where " +
                 sql::Criterio("NCesp", "=", nCesp));
}

}  // namespace

std::string VoceStorno::Testo(int anno) const {
  if (righe == 0) {
    return "L'ultimo anno ammortizzato " + std::to_string(ultimoAnno) + " e diverso da " +
           std::to_string(anno);
  }
  return "Eliminata Quota ammortamento ";
}

bool AmmortamentoAutomatico::Pronta(const SceltaAmmortamento& scelta) {
  if (scelta.anno > 0) return true;
  ambiente_.Dialogo().Messaggio("impostare anno", Icona::Avviso);
  return false;
}

std::optional<std::vector<VoceAmmortamento>> AmmortamentoAutomatico::Piano(
    const SceltaAmmortamento& scelta) {
  if (!Pronta(scelta)) return std::nullopt;
  impronta_ = Impronta(ambiente_);
  std::vector<VoceAmmortamento> voci;
  const bool tutti = Scorri(ambiente_, scelta, kDaCompletare,
                            [&](const Cespite& cespite, std::span<const MovimentoCespite> righe,
                                const AliquoteCategoria& categoria) {
                              QuotaAutomatica quota =
                                  CalcolaQuota(cespite, righe, categoria, scelta.anno);
                              if (quota.esito == EsitoQuota::NonAncora) return;
                              VoceAmmortamento voce{cespite.nCesp,
                                                    cespite.descrizione,
                                                    categoria.cod,
                                                    categoria.descrizione,
                                                    cespite.cespCorr,
                                                    quota,
                                                    {}};
                              if (quota.esito == EsitoQuota::Quota)
                                voce.riga = RigaDiQuota(righe, quota, scelta.anno);
                              voci.push_back(std::move(voce));
                            });
  if (!tutti) return std::nullopt;
  return voci;
}

std::optional<std::vector<VoceStorno>> AmmortamentoAutomatico::PianoStorno(
    const SceltaAmmortamento& scelta) {
  if (!Pronta(scelta)) return std::nullopt;
  impronta_ = Impronta(ambiente_);
  std::vector<VoceStorno> voci;
  const bool tutti = Scorri(ambiente_, scelta, kNonDismessi,
                            [&](const Cespite& cespite, std::span<const MovimentoCespite> righe,
                                const AliquoteCategoria& categoria) {
                              VoceStorno voce{cespite.nCesp,
                                              cespite.descrizione,
                                              categoria.cod,
                                              categoria.descrizione,
                                              {},
                                              {},
                                              {},
                                              {}};
                              std::vector<MovimentoCespite> restano;
                              for (const MovimentoCespite& riga : righe) {
                                if (riga.DiQuota())
                                  voce.ultimoAnno = std::max(voce.ultimoAnno, riga.anno);
                                if (riga.anno != scelta.anno || riga.cau != kQuota)
                                  restano.push_back(riga);
                              }
                              if (voce.ultimoAnno == 0) return;  // nothing was ever depreciated
                              if (voce.ultimoAnno == scelta.anno) {
                                voce.righe = static_cast<int>(righe.size() - restano.size());
                                if (voce.righe == 0) return;  // only the sum of earlier years
                                voce.importo =
                                    CalcolaScheda(righe).Fondo() - CalcolaScheda(restano).Fondo();
                                voce.completatoDopo = CalcolaScheda(restano).Completato();
                              }
                              voci.push_back(std::move(voce));
                            });
  if (!tutti) return std::nullopt;
  return voci;
}

template <class Voce>
bool AmmortamentoAutomatico::Fai(const SceltaAmmortamento& scelta, const std::vector<Voce>& voci,
                                 const std::string& titolo, const std::string& domanda,
                                 const std::function<void(const Voce&)>& scrivi) {
  if (!ambiente_.Dialogo().Conferma(domanda)) return false;
  const bool storno = std::is_same_v<Voce, VoceStorno>;
  StampaAmmortamento stampa(
      ambiente_, uscite_, titolo,
      {storno ? titolo : "AMMORTAMENTO AUTOMATICO CESPITI", scelta.anno, scelta.categorie});
  if (!stampa.Apri(scelta.stGrafico, scelta.xTar)) return false;
  std::int64_t scritti = 0;
  const auto tutte = [&] {
    if (Impronta(ambiente_) != impronta_) {
      return std::string(
          "i cespiti sono stati cambiati da un'altra stazione mentre si guardavano: ripetere");
    }
    const auto avanzamento =
        ambiente_.Dialogo().Avvia(titolo, static_cast<std::int64_t>(voci.size()));
    std::int64_t passi = 0;
    for (const Voce& voce : voci) {
      if (DaScrivere(voce)) {
        scrivi(voce);
        ++scritti;
      }
      if (++passi % kOgniLetti == 0 && !avanzamento->Avanza(passi)) {
        return std::string("interrotto a metà");
      }
    }
    return std::string();
  };
  if (!records::Esegui(ambiente_, {.nonRiuscita = titolo + " non riuscito: ",
                                   .ambito = Transazione::Ambito::Tessarc,
                                   .scrivi = tutte})) {
    return false;
  }
  const Voce* prima = nullptr;
  for (const Voce& voce : voci) {
    if (prima == nullptr || prima->cat != voce.cat) stampa.Categoria(voce.cat, voce.descrCat);
    stampa.Linea(LineaDi(voce, scelta.anno));
    prima = &voce;
  }
  stampa.Fine("cespiti variati: " + std::to_string(scritti) + " su " + std::to_string(voci.size()));
  return true;
}

bool AmmortamentoAutomatico::Registra(
    const SceltaAmmortamento& scelta,
    const std::function<void(const std::vector<VoceAmmortamento>&)>& mostra) {
  const auto voci = Piano(scelta);
  if (!voci) return false;
  if (mostra) mostra(*voci);
  Archivio& tessarc = ambiente_.ArchivioDi("tessarc");
  return Fai<VoceAmmortamento>(
      scelta, *voci, "Ammortamento automatico Cespiti",
      "Verrà creata la riga con la quota amm.to anno " + std::to_string(scelta.anno) +
          "\ndei cespiti non totalmente ammortizzati e non dismessi con le percentuali impostate "
          "sulle categorie da " +
          Intervallo(scelta.categorie) + "\nProseguo ?",
      [&](const VoceAmmortamento& voce) {
        if (voce.quota.esito == EsitoQuota::Quota) {
          std::vector<Coppia> campi = records::Valori(voce.riga, CampiMovimento());
          campi.emplace_back("NCesp", voce.nCesp);
          campi.emplace_back("Cat", voce.cat);
          campi.emplace_back("CespCorr", voce.cespCorr);
          tessarc.Inserisci(kTabellaRighe, campi);
        }
        if (voce.quota.completa || voce.quota.esito == EsitoQuota::Completo) {
          ImpostaCompletato(tessarc, voce.nCesp, true);
        }
      });
}

bool AmmortamentoAutomatico::Elimina(
    const SceltaAmmortamento& scelta,
    const std::function<void(const std::vector<VoceStorno>&)>& mostra) {
  const auto voci = PianoStorno(scelta);
  if (!voci) return false;
  if (mostra) mostra(*voci);
  Archivio& tessarc = ambiente_.ArchivioDi("tessarc");
  return Fai<VoceStorno>(scelta, *voci, "Eliminazione automatica quote ammortamento",
                         "Verrà eliminata la riga con la quota amm.to anno " +
                             std::to_string(scelta.anno) + "\ndei cespiti da categoria " +
                             Intervallo(scelta.categorie) + "\nnon dismessi\nProseguo ?",
                         [&](const VoceStorno& voce) {
                           tessarc.Esegui("DELETE * FROM MOVCESP_R WHERE " +
                                          sql::Criterio("NCesp", "=", voce.nCesp) + " AND " +
                                          sql::Criterio("Anno", "=", scelta.anno) + " AND " +
                                          sql::Criterio("Cau", "=", std::string(kQuota)));
                           ImpostaCompletato(tessarc, voce.nCesp, voce.completatoDopo);
                         });
}

}  // namespace fenalto::assets
