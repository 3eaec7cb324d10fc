#include "duedates/codes/Rate.h"

#include <algorithm>

#include "core/records/RigheInTabella.h"
#include "core/sql/Criterio.h"
#include "core/values/Intero128.h"

namespace fenalto::duedates {

namespace {

constexpr int kFineMese = 31;
/// Type of a rate that has none.
constexpr const char* kTipoPredefinito = "05";

/// Moves a date that falls in the window, one day at a time: a day that the next month hasn't got
/// is found in the month after it. A day that no month has moves nothing.
bool Sposta(Data& data, const SpostaData& finestra) {
  if (finestra.ggSpost < 1 || finestra.ggSpost > 31) return false;
  const int giorno = data.Mese() * 100 + data.Giorno();
  if (giorno < finestra.daMM * 100 + finestra.daGG) return false;
  if (giorno > finestra.aaMM * 100 + finestra.aaGG) return false;
  const int mese = data.Mese();
  while (data.Mese() == mese) data = data.PiuGiorni(1);
  while (data.Giorno() != finestra.ggSpost) data = data.PiuGiorni(1);
  return true;
}

/// Date of a rate; `mosse` receives the day of each window that moved it.
Data DataDellaRata(const RataPagamento& rata, Data data, const CodicePagamento& codice,
                   std::vector<int>& mosse) {
  data = data.PiuMesi(rata.dopoMesi).PiuGiorni(rata.dopoGiorni);
  if (rata.fineMese) {
    data = data.PiuGiorni(GiorniMese(kFineMese, data.Mese(), data.Anno()) - data.Giorno());
  } else if (!rata.dataFattura && rata.giornoFisso) {
    data = data.PiuMesi(1);
    data = data.PiuGiorni(rata.ggFisso - data.Giorno());
  }
  for (const SpostaData& finestra : codice.sposta) {
    if (Sposta(data, finestra)) mosse.push_back(finestra.ggSpost);
  }
  return data;
}

void Avvisa(std::vector<std::string>& avvisi, std::string testo) {
  if (std::find(avvisi.begin(), avvisi.end(), testo) == avvisi.end())
    avvisi.push_back(std::move(testo));
}

/// Amount times percentage over 100, cut to cents towards zero. The product is exact: held at four
/// decimals first it could come back a cent higher.
Importo QuotaTagliata(Importo importo, Importo percento) {
  const Intero128 prodotto =
      static_cast<Intero128>(importo.Decimillesimi()) * percento.Decimillesimi();
  constexpr Intero128 kUnCentesimo = static_cast<Intero128>(Importo::kScala) * Importo::kScala;
  return ImportoDa128(prodotto / kUnCentesimo * (Importo::kScala / 100));
}

/// Int((importo + 0.49) / 10): equal tens pass for equal totals.
std::int64_t Decine(Importo importo) {
  const Intero128 n = static_cast<Intero128>(importo.Decimillesimi()) + 4'900;
  return static_cast<std::int64_t>(QuozientePavimento(n, Intero128{10} * Importo::kScala));
}

std::size_t QuanteRate(std::size_t previste, std::vector<std::string>& avvisi) {
  if (previste <= kRateMassime) return previste;
  Avvisa(avvisi, "il codice pagamento ha " + std::to_string(previste) +
                     " rate: sono considerate solo le prime " + std::to_string(kRateMassime) +
                     ", il resto viene inserito sull'ultima di queste");
  return kRateMassime;
}

void RateNuove(const CodicePagamento& codice, Data data, Importo totale, RateCalcolate& esito) {
  const std::size_t quante = QuanteRate(codice.rate.size(), esito.avvisi);
  Importo somma;
  for (std::size_t i = 0; i < quante; ++i) {
    const RataPagamento& rata = codice.rate[i];
    esito.importi[i] = QuotaTagliata(totale, rata.percImporto);
    somma += esito.importi[i];
    std::vector<int> mosse;
    esito.date[i] = DataDellaRata(rata, data, codice, mosse);
    for (const int giorno : mosse)
      Avvisa(esito.avvisi, "scadenze spostate al " + std::to_string(giorno) + " del mese succ.");
    esito.tipi[i] = rata.tipo.empty() ? kTipoPredefinito : rata.tipo;
  }
  if (Decine(somma) != Decine(totale))
    Avvisa(esito.avvisi,
           "l'importo delle scadenze calcolato in base alle rate impostate sul codice pagamento "
           "non corrisponde al totale, la differenza verrà inserita sull'ultima rata");
  esito.importi[quante - 1] += totale - somma;
}

/// The day of a rate of the old form; February counts 28 days in every year.
int GiornoVecchio(int giorno, int mese) {
  if (mese == 2) return std::min(giorno, 28);
  const bool di30 = mese == 4 || mese == 6 || mese == 9 || mese == 11;
  return giorno == kFineMese && di30 ? 30 : giorno;
}

void RateVecchie(const CodicePagamento& codice, Data data, Importo totale, bool euro,
                 RateCalcolate& esito) {
  const std::size_t quante = QuanteRate(static_cast<std::size_t>(codice.numeroSc), esito.avvisi);
  // Cents in euro, whole lire.
  const std::int64_t unita = euro ? Importo::kScala / 100 : Importo::kScala;
  const Importo quota = ImportoDa128(
      QuozientePavimento(totale.Decimillesimi(), static_cast<Intero128>(quante) * unita) * unita);
  const bool giornoFisso = codice.giornoSc != 0 && codice.giornoSc != kFineMese;
  const Data base = data.PiuMesi(codice.primaSc + (giornoFisso ? 1 : 0) - 1);
  Importo resto = totale;
  for (std::size_t i = 0; i < quante; ++i) {
    esito.importi[i] = i + 1 < quante ? quota : resto;
    resto -= quota;
    Data scadenza = base.PiuMesi(static_cast<int>(i) + 1);
    if (codice.giornoSc >= 1)
      scadenza =
          scadenza.PiuGiorni(GiornoVecchio(codice.giornoSc, scadenza.Mese()) - scadenza.Giorno());
    if (scadenza.Mese() == codice.mese) scadenza = scadenza.PiuMesi(1);
    esito.date[i] = scadenza;
    esito.tipi[i] = codice.tipo.empty() ? kTipoPredefinito : codice.tipo;
  }
}

}  // namespace

CodicePagamento CodiceDaCampi(const std::function<Valore(std::string_view)>& campo) {
  const auto numero = [&](std::string_view nome) { return static_cast<int>(campo(nome).Intero()); };
  CodicePagamento codice;
  codice.cod = campo("Cod").Testo();
  codice.descrizione = campo("Descrizione").Testo();
  codice.nuovaCodifica = campo("NuovaCodifica").Booleano();
  codice.aggiornaScad = campo("AggiornaScad").Booleano();
  codice.numeroSc = numero("NumeroSc");
  codice.primaSc = numero("PrimaSc");
  codice.giornoSc = numero("GiornoSc");
  codice.mese = numero("Mese");
  codice.tipo = campo("Tipo").Testo();
  codice.conto = campo("Conto").Testo();
  codice.causale = campo("Causale").Testo();
  codice.codPagIva = campo("CodPagIva").Testo();
  codice.sposta = {
      SpostaData{numero("ggSpost"), numero("DaMM"), numero("DaGG"), numero("AaMM"), numero("AaGG")},
      SpostaData{numero("ggSpost2"), numero("DaMM2"), numero("DaGG2"), numero("AaMM2"),
                 numero("AaGG2")}};
  return codice;
}

std::span<const records::CampoRiga<RataPagamento>> CampiRata() {
  using records::Campo;
  static constexpr records::CampoRiga<RataPagamento> kCampi[] = {
      Campo<&RataPagamento::rata>("Rata"),
      Campo<&RataPagamento::percImporto>("PercImporto"),
      Campo<&RataPagamento::dopoMesi>("DopoMesi"),
      Campo<&RataPagamento::dopoGiorni>("DopoGiorni"),
      Campo<&RataPagamento::fineMese>("FineMese"),
      Campo<&RataPagamento::dataFattura>("DataFattura"),
      Campo<&RataPagamento::giornoFisso>("GiornoFisso"),
      Campo<&RataPagamento::ggFisso>("GGFisso"),
      Campo<&RataPagamento::tipo>("Tipo"),
      Campo<&RataPagamento::descrizione>("Descrizione")};
  return kCampi;
}

std::vector<RataPagamento> LeggiRate(Ambiente& ambiente, const std::string& cod) {
  std::vector<RataPagamento> rate;
  Rs righe = ambiente.ArchivioDi("tessarc").Recordset(
      "SELECT * FROM Pagamento_r WHERE " + sql::Criterio("Cod", "=", cod) + " ORDER BY Rata");
  for (; !righe.Eof(); righe.MoveNext()) rate.push_back(records::LeggiRiga(righe, CampiRata()));
  return rate;
}

std::optional<CodicePagamento> LeggiCodicePagamento(Ambiente& ambiente, const std::string& cod) {
  if (cod.empty()) return std::nullopt;
  const Rs riga = ambiente.ArchivioDi("tessarc").Recordset("SELECT * FROM Pagamento WHERE " +
                                                           sql::Criterio("Cod", "=", cod));
  if (riga.Eof()) return std::nullopt;
  CodicePagamento codice =
      CodiceDaCampi([&](std::string_view campo) { return riga.Fields(campo); });
  codice.rate = LeggiRate(ambiente, cod);
  return codice;
}

int GiorniMese(int giorno, int mese, int anno) {
  if (giorno != kFineMese) return giorno;
  switch (mese) {
    case 4:
    case 6:
    case 9:
    case 11:
      return 30;
    case 2:
      // The years are a fixed list: due dates of 2024 and later end February on the 28th.
      return anno == 2008 || anno == 2012 || anno == 2016 || anno == 2020 ? 29 : 28;
    default:
      return 31;
  }
}

Data DataRata(const RataPagamento& rata, Data data, const CodicePagamento& codice,
              std::optional<int>* spostata) {
  std::vector<int> mosse;
  const Data scadenza = DataDellaRata(rata, data, codice, mosse);
  if (spostata != nullptr && !mosse.empty()) *spostata = mosse.back();
  return scadenza;
}

RateCalcolate CalcolaRate(const CodicePagamento& codice, Data data, Importo importo, bool euro,
                          Data oggi) {
  RateCalcolate esito;
  esito.date.fill(oggi);
  if (!codice.aggiornaScad) return esito;
  if (codice.nuovaCodifica) {
    if (codice.rate.empty()) return esito;
    RateNuove(codice, data, importo, esito);
    esito.forma = "nuova";
  } else if (codice.numeroSc > 0) {
    RateVecchie(codice, data, importo, euro, esito);
    esito.forma = "vecchia";
  }
  return esito;
}

}  // namespace fenalto::duedates
