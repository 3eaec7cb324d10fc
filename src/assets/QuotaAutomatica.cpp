#include "assets/QuotaAutomatica.h"

#include <algorithm>

#include "core/values/Aritmetica.h"
#include "core/values/FormatoImporto.h"
#include "core/values/Intero128.h"

namespace fenalto::assets {

namespace {

bool ConQuota(std::span<const MovimentoCespite> righe, int anno) {
  return std::ranges::any_of(
      righe, [&](const MovimentoCespite& riga) { return riga.anno == anno && riga.DiQuota(); });
}

/// The first year before `anno` for which a quota lacks, 0 for none. The sum of earlier quotas
/// stands for those of its year and of all before.
int PrimoAnnoScoperto(std::span<const MovimentoCespite> righe, int dal, int anno) {
  int coperto = 0;
  for (const MovimentoCespite& riga : righe) {
    if (riga.cau == kQuoteIniziali && riga.anno < anno) coperto = std::max(coperto, riga.anno);
  }
  for (int altro = std::max(dal, coperto + 1); altro < anno; ++altro) {
    if (!ConQuota(righe, altro)) return altro;
  }
  return 0;
}

/// What one amount is of another in percent, cut to two decimals.
Importo InPercento(Importo parte, Importo intero) {
  constexpr int kPercento = 100;
  const Intero128 centesimi =
      static_cast<Intero128>(parte.Decimillesimi()) * Importo::kScala / intero.Decimillesimi();
  return ImportoDa128(centesimi * (Importo::kScala / kPercento));
}

}  // namespace

Importo QuotaDi(Importo importo, Importo aliquota) {
  return Arrotonda(importo.Percento(aliquota), 2, ModoArrotonda::Vicino);
}

QuotaAutomatica CalcolaQuota(const Cespite& cespite, std::span<const MovimentoCespite> righe,
                             const AliquoteCategoria& categoria, int anno) {
  const auto fermo = [](EsitoQuota esito, int mancante = 0) {
    QuotaAutomatica quota;
    quota.esito = esito;
    quota.annoMancante = mancante;
    return quota;
  };
  const int dal = cespite.dal.Anno();
  if (dal > anno) return fermo(EsitoQuota::NonAncora);
  const SchedaCespite intera = CalcolaScheda(righe);
  if (!intera.conCosto) return fermo(EsitoQuota::MancaCosto);
  if (const int mancante = PrimoAnnoScoperto(righe, dal, anno); mancante != 0) {
    return fermo(mancante == dal ? EsitoQuota::MancaPrimoAnno : EsitoQuota::MancaAnno, mancante);
  }
  if (ConQuota(righe, anno)) return fermo(EsitoQuota::GiaRegistrata);
  QuotaAutomatica quota;
  const SchedaCespite scheda = CalcolaScheda(righe, anno);
  quota.costo = scheda.Costo();
  // Quotas of later years, if any, have taken their part already.
  quota.residuo = std::min(scheda.Residuo(), intera.Residuo());
  quota.primoAnno = anno == dal;
  quota.aliquota = quota.primoAnno ? categoria.primoAnno : categoria.ordinaria;
  quota.importo = QuotaDi(quota.costo, quota.aliquota);
  if (quota.residuo <= Importo()) {
    quota.esito = EsitoQuota::Completo;
    quota.importo = Importo();
    return quota;
  }
  if (quota.importo <= Importo()) {
    quota.esito = EsitoQuota::SenzaAliquota;
    return quota;
  }
  quota.esito = EsitoQuota::Quota;
  if (quota.residuo < quota.importo) {
    quota.importo = quota.residuo;
    quota.aliquota = InPercento(quota.residuo, quota.costo);
  }
  quota.completa = quota.importo == quota.residuo;
  return quota;
}

std::string QuotaAutomatica::Testo() const {
  switch (esito) {
    case EsitoQuota::NonAncora:
      return {};
    case EsitoQuota::MancaCosto:
      return "Manca registrazione del costo originario";
    case EsitoQuota::MancaPrimoAnno:
      return "Manca ammortamento dell'anno della data entrata in funzione ";
    case EsitoQuota::MancaAnno:
      return "Manca ammortamento anno " + std::to_string(annoMancante);
    case EsitoQuota::GiaRegistrata:
      return "Ammortamento già registrato";
    case EsitoQuota::SenzaAliquota:
      return "Manca la percentuale di ammortamento sulla categoria";
    case EsitoQuota::Completo:
      return "Ammortamento completato";
    case EsitoQuota::Quota:
      break;
  }
  const std::string percento = TestoPercento(aliquota);
  return "Quota ammortamento " + percento + "%" + " (" + percento + " % del costo " +
         ScriviImporto(costo, 2) + ")";
}

MovimentoCespite RigaDiQuota(std::span<const MovimentoCespite> righe, const QuotaAutomatica& quota,
                             int anno) {
  std::int64_t ultima = 0;
  for (const MovimentoCespite& riga : righe) ultima = std::max(ultima, riga.posi);
  MovimentoCespite riga{ultima + 1, anno, std::string(kQuota)};
  riga.estremi = TestoPercento(quota.aliquota) + "%";
  riga.note = quota.primoAnno ? " primo anno" : " ordinario";
  riga.p = quota.aliquota;
  riga.importo = quota.importo;
  return riga;
}

}  // namespace fenalto::assets
