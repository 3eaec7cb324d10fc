// Giros of a settlement: the VAT of each register to the tax authority, the interest, the VAT found
// in the receipts.
#include <algorithm>
#include <map>
#include <utility>

#include "core/session/ImpostazioneAttiva.h"
#include "core/sql/Criterio.h"
#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"
#include "vat/postings/DatiIva.h"
#include "vat/settlement/LiquidazioneInterno.h"

namespace fenalto::vat {

namespace {

constexpr std::string_view kMancanoDati = "mancano dati per registrazione contabile ";
constexpr std::string_view kMancanoCorrispettivi =
    "mancano causale o conti per registraz. giro Iva corrispettivi";
constexpr std::string_view kErario = "Registrazione Erario c/Iva : ";
constexpr std::string_view kCorrispettivi = "Registrazione giro IVA ";
constexpr std::string_view kGiroProRata = "Registrazione pro-rata : ";
constexpr std::string_view kInteressi = "Interessi IVA";
constexpr std::string_view kScorporo = "SCORPORO IVA CORRISP.";

std::string Unisci(const std::vector<std::string>& pezzi) {
  std::string testo;
  for (const std::string& pezzo : pezzi) testo += (testo.empty() ? "" : ", ") + pezzo;
  return testo;
}

bool Manca(Ambiente& ambiente, std::string_view tabella, const std::string& cod) {
  return cod.empty() || !ambiente.Esiste("tessarc", tabella, {{"Cod", cod}});
}

/// Types 04 and 05 post their VAT on both sides of one account: only what isn't deducted of it is
/// left there to be moved.
bool PassaAllErario(std::string_view tipo) {
  return tipo != "04" && tipo != "05";
}

/// What registers of types 04 and 05 leave on their accounts, owed above zero.
std::map<std::string, Importo> RestoReverseCharge(const std::vector<IvaRegistro>& registri) {
  std::map<std::string, Importo> resti;
  for (const IvaRegistro& r : registri) {
    if (!PassaAllErario(r.tipo)) resti[r.conto] += r.segno < 0 ? -r.Dovuta() : r.Dovuta();
  }
  std::erase_if(resti, [](const auto& resto) { return resto.second.Zero(); });
  return resti;
}

bool DiCorrispettivi(std::string_view tipo) {
  return tipo == "02" || tipo == kTipoVentilato;
}

/// What a register's giro of receipts stands on.
struct ContiCorrispettivi {
  std::string causale;
  std::string ricavi;
  std::string iva;
};

ContiCorrispettivi LeggiContiCorrispettivi(Ambiente& ambiente, const std::string& riva) {
  Rs r = ambiente.ArchivioDi("tessarc").Recordset("select * from RegistriIva where " +
                                                  sql::Criterio("Cod", "=", riva));
  if (r.Eof()) return {};
  return {r.Fields("CauGiroCorrisp").Testo(), r.Fields("ContoRicaviCorrisp").Testo(),
          r.Fields("Conto").Testo()};
}

/// Puts an amount on the debit side of row 1, below zero on its credit side; the head names the
/// debit side first.
void Lati(ledger::RegistrazioneDueRighe& r, std::string conto, std::string contro,
          Importo importo) {
  r.cfp = r.cfpA = r.testaCfp = r.testaCfpA = "P";
  r.conto = std::move(conto);
  r.contoA = std::move(contro);
  (importo.Negativo() ? r.avere : r.dare) = importo.Assoluto();
  r.testaConto = importo.Negativo() ? r.contoA : r.conto;
  r.testaContoA = importo.Negativo() ? r.conto : r.contoA;
}

/// Giros of an earlier run of the same period, found by what they say.
class GiriPrecedenti {
 public:
  GiriPrecedenti(Ambiente& ambiente, const PeriodoIva& periodo)
      : ambiente_(ambiente), periodo_(periodo) {}

  /// Collects the registrations of an origin whose rows' description meets `sua`.
  template <typename F>
  void Cerca(ledger::Origine origine, F sua) {
    Archivio& tessarc = ambiente_.ArchivioDi("tessarc");
    // A period's giros are dated in its year or, when it closes the year, in the next.
    for (Rs r =
             tessarc.Recordset("select Anno, NumDoc, Dt from Articoli where " +
                               sql::Criterio("Anno", ">=", periodo_.anno) + " and " +
                               sql::Criterio("Anno", "<=", periodo_.anno + 1) + " and " +
                               sql::Criterio("CREATOINAUTOMATICO", "=", static_cast<int>(origine)) +
                               " order by Anno, NumDoc");
         !r.Eof(); r.MoveNext()) {
      Giro giro;
      giro.anno = static_cast<int>(r.Fields("Anno").Intero());
      giro.numDoc = r.Fields("NumDoc").Intero();
      giro.dt = r.Fields("Dt").Data();
      const auto righe = LeggiRigheIva(tessarc, giro.anno, giro.numDoc);
      if (std::none_of(righe.begin(), righe.end(),
                       [&](const RigaIva& riga) { return sua(riga, giro.dt); })) {
        continue;
      }
      giro.intatto = Intatto(righe);
      if (data_.Nulla()) data_ = giro.dt;
      giri_.push_back(giro);
    }
  }

  /// Day of the first one found.
  [[nodiscard]] Data Giorno() const { return data_; }

  /// What those that can't be erased have moved, debit less credit of each account; nothing when
  /// they all can be, since they are then written again.
  [[nodiscard]] std::map<std::string, Importo> MossoDaiFermi() const {
    std::map<std::string, Importo> mosso;
    if (Fermi().empty()) return mosso;
    for (const Giro& giro : giri_) {
      for (const RigaIva& riga :
           LeggiRigheIva(ambiente_.ArchivioDi("tessarc"), giro.anno, giro.numDoc)) {
        mosso[riga.conto] += riga.impoDare - riga.impoAvere;
      }
    }
    return mosso;
  }

  /// Erases them. False, with a notice and nothing erased, when one was changed by hand or stands
  /// on the printed journal: to write the giros again would then count them twice.
  bool Elimina(std::string_view nome, LogContabile& log) {
    if (giri_.empty()) return true;
    Archivio& tessarc = ambiente_.ArchivioDi("tessarc");
    const std::vector<std::string> fermi = Fermi();
    if (!fermi.empty()) {
      log.avvisi.push_back(std::string(nome) +
                           "i giri di una stampa precedente del periodo non si possono rifare: "
                           "articoli n. " +
                           Unisci(fermi) +
                           ".\nNon è stato registrato nulla di nuovo: controllarli e registrare a "
                           "mano quel che è cambiato.");
      return false;
    }
    std::vector<std::string> numeri;
    for (const Giro& giro : giri_) {
      const std::string chiave = sql::Criterio("Anno", "=", giro.anno) + " and " +
                                 sql::Criterio("NumDoc", "=", giro.numDoc);
      tessarc.Esegui("delete * from Movimenti where " + chiave);
      tessarc.Esegui("delete * from Articoli where " + chiave);
      numeri.push_back(giro.Nome());
    }
    log.Riga(std::string(nome) + "Articoli n. " + Unisci(numeri) +
             " della stampa precedente ELIMINATI");
    return true;
  }

 private:
  struct Giro {
    int anno = 0;
    std::int64_t numDoc = 0;
    Data dt;
    bool intatto = false;
    [[nodiscard]] std::string Nome() const { return std::to_string(numDoc); }
  };

  [[nodiscard]] std::vector<std::string> Fermi() const {
    const Data giornale =
        ambiente_.Max("dt", "UltimaDataLibro", {}, ambiente_.ArchivioDi("tessarc")).Data();
    std::vector<std::string> fermi;
    for (const Giro& giro : giri_) {
      if (giro.dt <= giornale)
        fermi.push_back(giro.Nome() + " (già sul libro giornale)");
      else if (!giro.intatto)
        fermi.push_back(giro.Nome() + " (cambiato a mano)");
    }
    return fermi;
  }

  /// Two rows of one description, each the other's counterpart and its opposite.
  static bool Intatto(const std::vector<RigaIva>& righe) {
    if (righe.size() != 2) return false;
    const RigaIva& a = righe[0];
    const RigaIva& b = righe[1];
    return a.descrizione == b.descrizione && a.conto == b.contoControp &&
           b.conto == a.contoControp && a.impoDare == b.impoAvere && a.impoAvere == b.impoDare;
  }

  Ambiente& ambiente_;
  const PeriodoIva& periodo_;
  std::vector<Giro> giri_;
  Data data_;
};

bool FinisceCon(std::string_view testo, std::string_view fine) {
  return testo.size() >= fine.size() && testo.substr(testo.size() - fine.size()) == fine;
}

class Scrittura {
 public:
  Scrittura(Ambiente& ambiente, const Liquidazione& liquidazione, const DatiGiri& giri,
            LogContabile& log)
      : ambiente_(ambiente), l_(liquidazione), giri_(giri), log_(log) {}

  void Erario(Importo interessiPrima) {
    GiriPrecedenti precedenti(ambiente_, l_.periodo);
    const std::string fine = " " + PeriodoBarrato(l_.periodo);
    precedenti.Cerca(ledger::Origine::GiroErario, [&](const RigaIva& riga, Data) {
      return FinisceCon(riga.descrizione, fine) && !riga.descrizione.starts_with(kProRataIva);
    });
    if (!interessiPrima.Zero()) {
      // The interest doesn't name its period: day and amount tell it.
      const Data giorno = precedenti.Giorno();
      precedenti.Cerca(ledger::Origine::GiroErario, [&](const RigaIva& riga, Data dt) {
        return riga.descrizione == kInteressi && (giorno.Nulla() || dt == giorno) &&
               (riga.impoDare == interessiPrima || riga.impoAvere == interessiPrima);
      });
    }
    if (!precedenti.Elimina(kErario, log_)) return;
    std::vector<std::string> numeri = Registri(fine);
    if (!l_.interessi.Zero()) {
      numeri.push_back(AllErario(giri_.contoInteressi, std::string(kInteressi), l_.interessi));
    }
    if (numeri.empty()) return;
    log_.Riga(std::string(kErario) + "Articoli n. " + Unisci(numeri) + " EFFETTUATA");
  }

  /// What the pro-rata takes off is no credit: it goes to a cost, from the tax authority's account
  /// where the VAT of the registers was moved to it, from that of the register otherwise.
  void ProRata() {
    const std::string descrizione = DescrizioneProRata();
    GiriPrecedenti precedenti = GiriProRata();
    if (!precedenti.Elimina(kGiroProRata, log_) || giri_.contoProRata.empty()) return;
    std::map<std::string, Importo> tolta;
    for (const IvaRegistro& r : l_.registri) {
      tolta[giri_.erario ? giri_.contoErario : r.conto] += r.proRata;
    }
    for (const auto& [conto, importo] : tolta) {
      if (importo.Zero()) continue;
      ledger::RegistrazioneDueRighe giro = Nuova(ledger::Origine::GiroErario, giri_.causaleErario);
      giro.descrizione = descrizione;
      Lati(giro, giri_.contoProRata, conto, importo);
      log_.Riga(std::string(kGiroProRata) + "Articolo n. " +
                std::to_string(ledger::ScriviDueRighe(ambiente_, giro)) + " EFFETTUATA");
    }
  }

  void Corrispettivi(const std::vector<TotaleRegistro>& registri) {
    const std::string descrizione = std::string(kScorporo) + PeriodoBarrato(l_.periodo);
    GiriPrecedenti precedenti(ambiente_, l_.periodo);
    precedenti.Cerca(ledger::Origine::GiroCorrispettivi,
                     [&](const RigaIva& riga, Data) { return riga.descrizione == descrizione; });
    if (!precedenti.Elimina(kCorrispettivi, log_)) return;
    for (const TotaleRegistro& r : registri) {
      if (!DiCorrispettivi(r.intervallo.tipo) || r.ivaScorporata.Zero()) continue;
      const ContiCorrispettivi conti = LeggiContiCorrispettivi(ambiente_, r.intervallo.riva);
      ledger::RegistrazioneDueRighe giro = Nuova(ledger::Origine::GiroCorrispettivi, conti.causale);
      giro.descrizione = descrizione;
      Lati(giro, conti.ricavi, conti.iva, r.ivaScorporata);
      log_.Riga(std::string(kCorrispettivi) + "Articolo n. " +
                std::to_string(ledger::ScriviDueRighe(ambiente_, giro)) + " EFFETTUATA");
    }
  }

 private:
  [[nodiscard]] std::string DescrizioneProRata() const {
    return std::string(kProRataIva) + PeriodoBarrato(l_.periodo);
  }
  [[nodiscard]] GiriPrecedenti GiriProRata() const {
    GiriPrecedenti precedenti(ambiente_, l_.periodo);
    precedenti.Cerca(ledger::Origine::GiroErario, [&](const RigaIva& riga, Data) {
      return riga.descrizione == DescrizioneProRata();
    });
    return precedenti;
  }

  /// Clears the accounts of the registers; the numbers of the giros. What a pro-rata giro that
  /// stays has already moved off one of them isn't moved again.
  std::vector<std::string> Registri(const std::string& fine) {
    std::map<std::string, Importo> mosso = GiriProRata().MossoDaiFermi();
    std::vector<std::string> numeri;
    const auto gira = [&](const std::string& conto, const std::string& tipo, Importo importo,
                          bool acquisti) {
      const Importo gia = acquisti ? std::exchange(mosso[conto], Importo()) : Importo();
      if (!gia.Zero()) {
        std::string testo = std::string(kErario) + "dal conto " + conto;
        testo += " il pro-rata già registrato, " + ScriviImporto(gia.Assoluto(), 2);
        log_.Riga(testo + ", non viene girato di nuovo");
      }
      if (importo == gia) return;
      numeri.push_back(AllErario(conto, DescrizioneTipo(tipo) + fine, importo - gia));
    };
    for (const IvaRegistro& r : l_.registri) {
      if (!PassaAllErario(r.tipo)) continue;
      gira(r.conto, r.tipo, r.segno < 0 ? -r.Dovuta() : r.Dovuta(), r.segno < 0);
    }
    for (const auto& [conto, resto] : RestoReverseCharge(l_.registri)) {
      gira(conto, "04", resto, true);
    }
    return numeri;
  }

  [[nodiscard]] std::string DescrizioneTipo(const std::string& tipo) {
    return NzStr(ambiente_.Cerca("tessarc", "TIPIregistriiva", {{"cod", tipo}}, "DESCRIZIONE"));
  }

  /// Moves an amount from an account to that of the tax authority; the number of the giro.
  std::string AllErario(const std::string& conto, std::string descrizione, Importo importo) {
    ledger::RegistrazioneDueRighe giro = Nuova(ledger::Origine::GiroErario, giri_.causaleErario);
    giro.descrizione = std::move(descrizione);
    Lati(giro, conto, giri_.contoErario, importo);
    return std::to_string(ledger::ScriviDueRighe(ambiente_, giro));
  }

  [[nodiscard]] ledger::RegistrazioneDueRighe Nuova(ledger::Origine origine,
                                                    const std::string& causale) const {
    ledger::RegistrazioneDueRighe r;
    r.anno = giri_.dt.Anno();
    r.dt = giri_.dt;
    r.causale = causale;
    r.origine = origine;
    return r;
  }

  Ambiente& ambiente_;
  const Liquidazione& l_;
  const DatiGiri& giri_;
  LogContabile& log_;
};

/// What the giro to the tax authority lacks beside its causal.
std::vector<std::string> MancaErario(Ambiente& ambiente, const DatiGiri& giri,
                                     const std::vector<TotaleRegistro>& registri,
                                     Importo interessi) {
  std::vector<std::string> manca;
  if (Manca(ambiente, "Conti", giri.contoErario)) manca.emplace_back("conto erario c/IVA");
  if (!interessi.Zero() && Manca(ambiente, "Conti", giri.contoInteressi)) {
    manca.emplace_back("conto interessi");
  }
  for (const TotaleRegistro& r : registri) {
    if (r.segno == 0 || !PassaAllErario(r.intervallo.tipo) || r.Iva().Zero()) continue;
    if (Manca(ambiente, "Conti", r.conto))
      manca.push_back("conto del registro " + r.intervallo.riva);
  }
  return manca;
}

}  // namespace

std::string PeriodoBarrato(const PeriodoIva& periodo) {
  return periodo.cod + "/" + std::to_string(periodo.anno);
}

DatiGiri LeggiDatiGiri(Ambiente& ambiente) {
  DatiGiri giri;
  giri.erario = ImpostazioneAttiva(ambiente, "RegistrazioneContabileErario");
  giri.corrispettivi = ImpostazioneAttiva(ambiente, "RegistrazioneContabileGiro");
  giri.contoErario = Rifila(ambiente.Config("ContoIvaErario"));
  giri.contoInteressi = Rifila(ambiente.Config("ContoInteressiErario"));
  giri.causaleErario = Rifila(ambiente.Config("CausaleErario"));
  giri.contoProRata = Rifila(ambiente.Config("ContoProRata"));
  return giri;
}

std::string MancanoDatiGiri(Ambiente& ambiente, const DatiGiri& giri,
                            const std::vector<TotaleRegistro>& registri, Importo interessi,
                            Importo proRata) {
  const bool conProRata = !proRata.Zero() && !giri.contoProRata.empty();
  if (!giri.erario && !giri.corrispettivi && !conProRata) return {};
  std::vector<std::string> manca;
  const auto& anni = ambiente.Anni();
  if (giri.dt.Nulla()) {
    manca.emplace_back("data di registrazione");
  } else if (std::find(anni.begin(), anni.end(), giri.dt.Anno()) == anni.end()) {
    manca.push_back("anno " + std::to_string(giri.dt.Anno()) + " tra gli anni della ditta");
  }
  if ((giri.erario || conProRata) && Manca(ambiente, "Causali", giri.causaleErario)) {
    manca.emplace_back("causale");
  }
  if (giri.erario) {
    for (std::string& m : MancaErario(ambiente, giri, registri, interessi)) {
      manca.push_back(std::move(m));
    }
  }
  if (conProRata && Manca(ambiente, "Conti", giri.contoProRata)) {
    manca.emplace_back("conto del pro-rata");
  }
  if (!manca.empty()) return std::string(kMancanoDati) + "(" + Unisci(manca) + ")";
  if (!giri.corrispettivi) return {};
  for (const TotaleRegistro& r : registri) {
    if (!DiCorrispettivi(r.intervallo.tipo) || r.ivaScorporata.Zero()) continue;
    const ContiCorrispettivi conti = LeggiContiCorrispettivi(ambiente, r.intervallo.riva);
    if (Manca(ambiente, "Causali", conti.causale) || Manca(ambiente, "Conti", conti.ricavi) ||
        Manca(ambiente, "Conti", conti.iva)) {
      return std::string(kMancanoCorrispettivi) + " (registro " + r.intervallo.riva + ")";
    }
  }
  return {};
}

void RiscriviGiri(Ambiente& ambiente, const Liquidazione& liquidazione,
                  const std::vector<TotaleRegistro>& registri, const DatiGiri& giri,
                  Importo interessiPrima, LogContabile& log) {
  Scrittura scrittura(ambiente, liquidazione, giri, log);
  if (giri.erario) scrittura.Erario(interessiPrima);
  scrittura.ProRata();
  if (giri.corrispettivi) scrittura.Corrispettivi(registri);
}

}  // namespace fenalto::vat
