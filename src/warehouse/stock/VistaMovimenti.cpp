#include "warehouse/stock/VistaMovimenti.h"

#include <array>

#include "core/sql/Criterio.h"
#include "core/values/Aritmetica.h"
#include "core/values/Testo.h"
#include "warehouse/stock/DescrizioneMovimento.h"

namespace fenalto::warehouse {
namespace {

/// What a quick view says at its end, below an empty line.
constexpr std::array<const char*, 4> kAvvisi = {"", "      premere bottone REFRESH",
                                                "      per vedere tutti i   ",
                                                "      movimenti successivi   "};

std::string Condizione(int anno, const FiltroMovimenti& filtro) {
  std::string testo = sql::Criterio("FattureCli_r.CodiceRiga", "=", filtro.prodotto) +
                      " AND (FattureCli_r.CS='C' OR FattureCli_r.CS='S') AND " +
                      sql::Criterio("FattureCli_r.Anno", "=", anno) +
                      " AND FattureCli_r.CodiceRiga<>''";
  if (!filtro.mag.empty()) testo += " AND " + sql::Criterio("FattureCli_r.Mag", "=", filtro.mag);
  if (!filtro.tipoDoc.empty()) {
    testo += " AND " + sql::Criterio("FattureCli_r.TipoDoc", "=", filtro.tipoDoc);
  }
  return testo;
}

Rs Righe(Ambiente& ambiente, const FiltroMovimenti& filtro) {
  return ambiente.ArchivioDi("tessarc").Recordset(
      std::string("SELECT ") + kColonneMovimento +
      ", FattureCli_r.Mag AS Mag, FattureCli_r.Dt AS Dt, "
      "FattureCli_r.TipoDoc AS TipoDoc, FattureCli_r.NumDoc AS NumDoc, "
      "FattureCli_r.Posi AS Posi, FattureCli_r.CS AS CS, "
      "FattureCli_r.Quantita AS Quantita, FattureCli_r.Prezzo AS Prezzo, "
      "FattureCli_r.Sc1 AS Sc1, FattureCli_r.Sc2 AS Sc2, FattureCli_r.Sc3 AS Sc3, "
      "FattureCli_r.Descrizione AS DescrRiga, FattureCli_r.Anno AS Anno FROM " +
      kDaMovimento + " WHERE " + Condizione(ambiente.Anno(), filtro) +
      " ORDER BY FattureCli_r.CodiceRiga, FattureCli_r.Dt, FattureCli_r.TipoDoc, "
      "FattureCli_r.NumDoc, FattureCli_r.Posi");
}

}  // namespace

VistaMovimenti::VistaMovimenti(Ambiente& ambiente, FiltroMovimenti filtro)
    : ambiente_(ambiente), filtro_(std::move(filtro)), righe_(Righe(ambiente, filtro_)) {
  if (!filtro_.veloce) return;
  soloPrime_ = ambiente.ArchivioDi("tessarc")
                   .Singolo("SELECT Count(*) FROM FattureCli_r WHERE " +
                            Condizione(ambiente.Anno(), filtro_))
                   .Intero() > kMovimentiMolti;
}

const char* VistaMovimenti::TitoloEsistenza(const FiltroMovimenti& filtro) {
  return filtro.mag.empty() && filtro.tipoDoc.empty() ? "esistenza" : "somma";
}

RigaMovimento VistaMovimenti::Nuova(GenereMovimento genere) {
  RigaMovimento riga;
  riga.genere = genere;
  riga.num = ++num_;
  return riga;
}

void VistaMovimenti::Somma() {
  const bool carico = UgualeTesto(righe_.Fields("CS").RifTesto(), "C");
  (carico ? carichi_ : scarichi_) += righe_.Fields("Quantita").Importo();
}

RigaMovimento VistaMovimenti::Movimento() {
  RigaMovimento riga = Nuova(GenereMovimento::Movimento);
  Somma();
  const bool carico = UgualeTesto(righe_.Fields("CS").RifTesto(), "C");
  (carico ? riga.carichi : riga.scarichi) = righe_.Fields("Quantita").Importo();
  riga.esistenza = carichi_ - scarichi_;
  riga.descrizione = DescriviMovimento(ambiente_, righe_);
  riga.mag = NzStr(righe_.Fields("Mag"));
  riga.dt = righe_.Fields("Dt").Data();
  riga.tipoDoc = NzStr(righe_.Fields("TipoDoc"));
  riga.numDoc = righe_.Fields("NumDoc").Intero();
  riga.posi = righe_.Fields("Posi").Intero();
  riga.anno = static_cast<int>(righe_.Fields("Anno").Intero());
  riga.descrizione2 = NzStr(righe_.Fields("DescrRiga"));
  if (filtro_.anchePrezzi) {
    riga.prezzo = PrezzoNetto(righe_.Fields("Prezzo").Importo(), righe_.Fields("Sc1").Importo(),
                              righe_.Fields("Sc2").Importo(), righe_.Fields("Sc3").Importo());
  }
  return riga;
}

RigaMovimento VistaMovimenti::Precedenti() {
  RigaMovimento riga = Nuova(GenereMovimento::Precedenti);
  riga.descrizione = "Movimentazione prima del " + filtro_.daDt.Testo();
  riga.carichi = carichi_;
  riga.scarichi = scarichi_;
  riga.esistenza = carichi_ - scarichi_;
  return riga;
}

std::optional<RigaMovimento> VistaMovimenti::Avviso() {
  RigaMovimento riga = Nuova(GenereMovimento::Avviso);
  riga.descrizione = kAvvisi.at(avvisi_++);
  if (avvisi_ == kAvvisi.size()) passo_ = Passo::Fine;
  return riga;
}

void VistaMovimenti::FineRighe() {
  passo_ = soloPrime_ && !righe_.Eof() ? Passo::Avvisi : Passo::Totali;
}

std::optional<RigaMovimento> VistaMovimenti::Prossima() {
  while (passo_ == Passo::Righe) {
    const bool fine = righe_.Eof() || (soloPrime_ && lette_ == kMovimentiVeloci);
    const Data dt = fine ? Data() : righe_.Fields("Dt").Data();
    if (fine || (!filtro_.aaDt.Nulla() && dt > filtro_.aaDt)) {
      // Rows come by day: none of the rest is asked for.
      if (!fine) soloPrime_ = false;
      FineRighe();
      break;
    }
    if (!filtro_.daDt.Nulla() && dt < filtro_.daDt) {
      Somma();
      somme_ = true;
    } else {
      if (somme_ && !dentro_) {
        dentro_ = true;
        return Precedenti();
      }
      RigaMovimento riga = Movimento();
      ++lette_;
      righe_.MoveNext();
      return riga;
    }
    ++lette_;
    righe_.MoveNext();
  }
  if (passo_ == Passo::Avvisi) return Avviso();
  if (passo_ == Passo::Fine) return std::nullopt;
  passo_ = Passo::Fine;
  RigaMovimento totali = Nuova(GenereMovimento::Totali);
  totali.descrizione = "totali";
  totali.carichi = carichi_;
  totali.scarichi = scarichi_;
  totali.esistenza = carichi_ - scarichi_;
  return totali;
}

std::vector<RigaMovimento> LeggiMovimenti(Ambiente& ambiente, const FiltroMovimenti& filtro) {
  std::vector<RigaMovimento> righe;
  VistaMovimenti vista(ambiente, filtro);
  while (std::optional<RigaMovimento> riga = vista.Prossima()) righe.push_back(std::move(*riga));
  return righe;
}

}  // namespace fenalto::warehouse
