#include "demo/LibroDemo.h"

#include <algorithm>

#include "core/sql/Criterio.h"
#include "core/values/Aritmetica.h"
#include "demo/AnagraficheDemo.h"
#include "demo/DatiDemo.h"

namespace fenalto::demo {

namespace {

constexpr std::string_view kCassa = "100.010";
constexpr std::string_view kBanca = "110.001";
constexpr std::string_view kIvaDebito = "170.001";
constexpr std::string_view kIvaCredito = "170.003";
constexpr std::string_view kErarioIva = "170.010";
constexpr std::string_view kMutuo = "350.010";
constexpr std::string_view kRitenute = "420.001";
constexpr std::string_view kRitenuteAutonomi = "420.002";
constexpr std::string_view kInps = "430.001";
constexpr std::string_view kDipendenti = "440.001";

constexpr std::array<std::string_view, 12> kMesi = {
    "gennaio", "febbraio", "marzo",     "aprile",  "maggio",   "giugno",
    "luglio",  "agosto",   "settembre", "ottobre", "novembre", "dicembre"};

RigaDemo Conto(std::string_view conto, Importo importo, std::string descrizione) {
  return {"P", std::string(conto), importo, std::move(descrizione)};
}

}  // namespace

void LibroDemo::Registra(Data data, std::string_view causale, const std::vector<RigaDemo>& righe,
                         std::string_view modello) {
  if (data > oggi_) return;
  Documenti(data);
  bool scritta = true;
  primanota_.Nuovo();
  Scheda& testa = primanota_.Testa();
  testa.Scrivi("Dt", data);
  testa.Scrivi("Duplicabile", !modello.empty());
  testa.Scrivi("DescrArtDupl", modello);
  for (const RigaDemo& r : righe) {
    scritta = scritta && primanota_.PNuovaRiga();
    Scheda& riga = primanota_.Riga();
    riga.Scrivi("Causale", causale);
    riga.Scrivi("Descrizione", r.descrizione);
    riga.Scrivi("CFP", r.cfp);
    riga.Scrivi("Conto", r.conto);
    riga.Scrivi(r.importo.Negativo() ? "ImpoAvere" : "ImpoDare", r.importo.Assoluto());
    scritta = scritta && primanota_.ConfermaRiga();
    saldi_[{r.cfp, r.conto}] += r.importo;
  }
  if (!scritta || !primanota_.Conferma()) {
    throw ErroreArchivio(ErroreArchivio::Causa::Altro,
                         "registrazione del " + data.Testo() + ": " + dialoghi_.ultimo);
  }
}

void LibroDemo::Documenti(Data data) {
  if (data < documenti_.Inizio()) return;
  Archivio& tessarc = ambiente_.ArchivioDi("tessarc");
  const std::string anno = sql::Criterio("Anno", "=", ambiente_.Anno());
  const Valore ultimo = tessarc.Singolo("select Max(NumDoc) from Articoli where " + anno);
  documenti_.FinoA(data);
  pagamenti_.FinoA(std::min(data, oggi_));
  for (Rs conto = tessarc.Recordset(
           "select CFP, Conto, Sum(ImpoDare), Sum(ImpoAvere) from Movimenti where " + anno +
           " and " + sql::Criterio("NumDoc", ">", ultimo.Intero()) + " group by CFP, Conto");
       !conto.Eof(); conto.MoveNext()) {
    const std::pair chiave(conto.Fields(0).Testo(), conto.Fields(1).Testo());
    const Importo saldo = conto.Fields(2).Importo() - conto.Fields(3).Importo();
    (chiave.first == "P" ? saldi_ : daScadenze_)[chiave] += saldo;
  }
}

void LibroDemo::Scegli(int anno) {
  const auto scelto = ambiente_.ScegliAnno(anno);
  if (!scelto) throw ErroreArchivio(ErroreArchivio::Causa::Altro, scelto.Errore().messaggio);
}

void LibroDemo::PrimoAnno(int anno) {
  primoAnno_ = anno;
  Scegli(anno);
  const std::string testo = "Saldo di apertura " + std::to_string(anno);
  const std::array<std::pair<std::string_view, std::int64_t>, 12> apertura = {{{kCassa, 850},
                                                                               {kBanca, 38'420},
                                                                               {"140.001", 27'600},
                                                                               {"210.005", 18'500},
                                                                               {"210.008", 24'000},
                                                                               {"220.005", -7'400},
                                                                               {"220.008", -9'600},
                                                                               {kErarioIva, -2'310},
                                                                               {"300.001", -20'000},
                                                                               {"320.001", -9'870},
                                                                               {kMutuo, -30'000},
                                                                               {"230.002", 1'900}}};
  std::vector<RigaDemo> righe;
  Importo totale;
  const auto aggiungi = [&](RigaDemo riga) {
    totale += riga.importo;
    righe.push_back(std::move(riga));
  };
  for (const auto& [conto, euro] : apertura) {
    aggiungi(Conto(conto, Importo::DaUnita(euro), testo));
  }
  for (std::size_t n = 1; n <= kClientiDemo.size(); ++n) {
    aggiungi({"C", CodiceParteDemo(n), generatore_.Euro(400, 4'800), testo});
  }
  for (std::size_t n = 1; n <= kFornitoriDemo.size(); ++n) {
    aggiungi({"F", CodiceParteDemo(n), -generatore_.Euro(300, 5'200), testo});
  }
  aggiungi(Conto("300.012", -totale, testo));
  Registra(Data::DaGma(1, 1, anno).value(), ledger::kCausaleApertura, righe);
  Anno(anno);
}

void LibroDemo::SecondoAnno(int anno) {
  Scegli(anno);
  const std::string testo = "Saldo di apertura " + std::to_string(anno);
  std::vector<RigaDemo> righe;
  Importo totale;
  auto finali = saldi_;
  for (const auto& [conto, saldo] : daScadenze_) finali[conto] += saldo;
  for (const auto& [conto, saldo] : finali) {
    // Accounts of the masters from 500 on are of the year's result.
    if (saldo.Zero() || (conto.first == "P" && conto.second >= "500")) continue;
    righe.push_back({conto.first, conto.second, saldo, testo});
    totale += saldo;
  }
  righe.push_back(Conto(totale.Negativo() ? "300.011" : "300.010", -totale, testo));
  saldi_.clear();
  Registra(Data::DaGma(1, 1, anno).value(), ledger::kCausaleApertura, righe);
  for (const auto& [conto, saldo] : daScadenze_) saldi_[conto] -= saldo;
  Anno(anno);
}

void LibroDemo::Anno(int anno) {
  for (int mese = 1; mese <= 12; ++mese) Mese(anno, mese);
  FineAnno(anno);
  Documenti(Data::DaGma(31, 12, anno).value());
}

void LibroDemo::Mese(int anno, int mese) {
  const auto giorno = [&](int g) { return Giorno(g, mese, anno); };
  const std::string nome(kMesi[static_cast<std::size_t>(mese - 1)]);
  const Importo affitto = Importo::DaUnita(anno % 2 == 0 ? 950 : 975);
  Registra(giorno(4), "008",
           {Conto("550.001", affitto, "Affitto magazzino " + nome),
            Conto(kBanca, -affitto, "Affitto magazzino " + nome)},
           mese == 1 ? "Affitto magazzino" : "");
  PagaPersonale(giorno(10));
  if (anno == primoAnno_ && mese == 2) {
    const std::string testo = "Versamento soci in conto capitale";
    Registra(giorno(12), "046",
             {Conto(kBanca, Importo::DaUnita(10'000), testo),
              Conto("300.004", Importo::DaUnita(-10'000), testo)});
  }
  if (mese % 2 == 1) PartiteAperte("C", giorno(13));
  VersaF24(nome, giorno(16));
  Corrispettivi(nome, giorno(18));
  if (mese % 2 == 0) PartiteAperte("F", giorno(20));
  if (mese % 3 == 0) {
    Trimestre(std::to_string(mese / 3) + "° trimestre", {giorno(25), giorno(26), giorno(27)});
  }
  Stipendi(nome, giorno(28), mese == 1 ? "Stipendi del mese" : "");
}

void LibroDemo::PagaPersonale(Data data) {
  const Importo netti = Saldo("P", kDipendenti);
  if (netti.Zero()) return;
  Registra(data, "022",
           {Conto(kDipendenti, -netti, "Pagamento stipendi"),
            Conto(kBanca, netti, "Pagamento stipendi")});
}

void LibroDemo::VersaF24(const std::string& mese, Data data) {
  Documenti(std::min(data, oggi_));
  std::vector<RigaDemo> righe;
  Importo totale;
  for (const std::string_view conto : {kRitenute, kRitenuteAutonomi, kInps, kErarioIva}) {
    const Importo debito = Saldo("P", conto);
    if (!debito.Negativo()) continue;
    righe.push_back(Conto(conto, -debito, "Versamento F24 " + mese));
    totale += debito;
  }
  if (righe.empty()) return;
  righe.push_back(Conto(kBanca, totale, "Versamento F24 " + mese));
  Registra(data, "023", righe);
}

void LibroDemo::Stipendi(const std::string& mese, Data data, std::string_view modello) {
  const Importo lordi = generatore_.Euro(2'900, 3'200);
  const Importo contributi = lordi.Percento(Importo::DaUnita(29));
  const Importo trattenute = lordi.Percento(Importo::DaUnita(9));
  const Importo ritenute = lordi.Percento(Importo::DaUnita(14));
  const auto centesimi = [](Importo i) { return Arrotonda(i, 2, ModoArrotonda::Vicino); };
  const Importo inps = centesimi(contributi) + centesimi(trattenute);
  const std::string testo = "Stipendi " + mese;
  Registra(data, "020",
           {Conto("560.001", lordi, testo), Conto("560.002", centesimi(contributi), testo),
            Conto(kInps, -inps, testo), Conto(kRitenute, -centesimi(ritenute), testo),
            Conto(kDipendenti, centesimi(trattenute) + centesimi(ritenute) - lordi, testo)},
           modello);
}

void LibroDemo::Corrispettivi(const std::string& mese, Data data) {
  // From here on every day has its own, on the register.
  if (data >= documenti_.Inizio()) {
    VersaContanti(data);
    return;
  }
  const Importo netto = generatore_.Euro(5'600, 8'400);
  const Importo iva = CalcolaIva(netto, Importo::DaUnita(22), true);
  const Importo contanti = Importo::DaUnita((netto + iva).ParteIntera() / 4);
  const std::string testo = "Corrispettivi " + mese;
  Registra(data, "037",
           {Conto(kCassa, contanti, testo), Conto(kBanca, netto + iva - contanti, testo),
            Conto("700.010", -netto, testo), Conto(kIvaDebito, -iva, testo)});
}

void LibroDemo::VersaContanti(Data data) {
  Documenti(std::min(data, oggi_));
  const Importo versato = Importo::DaUnita((Saldo("P", kCassa).ParteIntera() / 100 - 5) * 100);
  if (versato > Importo()) {
    Registra(data, "005",
             {Conto(kBanca, versato, "Versamento contanti"),
              Conto(kCassa, -versato, "Versamento contanti")});
  }
}

void LibroDemo::PartiteAperte(const std::string& cfp, Data data) {
  const bool clienti = cfp == "C";
  const std::size_t quanti = clienti ? kClientiDemo.size() : kFornitoriDemo.size();
  const std::string testo = clienti ? "Incasso a saldo" : "Pagamento a saldo";
  std::vector<RigaDemo> righe;
  Importo totale;
  const std::size_t primo = generatore_.Indice(quanti);
  for (std::size_t passo = 0; passo < quanti && righe.size() < 2; ++passo) {
    const std::string codice = CodiceParteDemo((primo + passo) % quanti + 1);
    const Importo saldo = Saldo(cfp, codice);
    if (saldo.Zero()) continue;
    righe.push_back({cfp, codice, -saldo, testo});
    totale += saldo;
  }
  if (righe.empty()) return;
  const RigaDemo banca = Conto(kBanca, totale, testo);
  righe.insert(clienti ? righe.begin() : righe.end(), banca);
  Registra(data, clienti ? "002" : "003", righe);
}

void LibroDemo::Trimestre(const std::string& testo, const std::array<Data, 3>& giorni) {
  const Importo spese = generatore_.Euro(38, 65);
  Registra(giorni[0], "015",
           {Conto("520.020", spese, "Spese di conto " + testo),
            Conto(kBanca, -spese, "Spese di conto " + testo)});
  const Importo quota = Importo::DaUnita(1'500);
  const Importo interessi =
      Arrotonda((-Saldo("P", kMutuo)).Percento(Importo::DaUnita(1)), 2, ModoArrotonda::Vicino);
  Registra(giorni[0], "018",
           {Conto(kMutuo, quota, "Rata mutuo " + testo),
            Conto("590.002", interessi, "Rata mutuo " + testo),
            Conto(kBanca, -(quota + interessi), "Rata mutuo " + testo)});
  VersaContanti(giorni[1]);
  Liquidazione(testo, giorni[2]);
  ++note_;
  const std::string nota = "Nota di addebito n. " + std::to_string(note_) + " (fuori campo IVA)";
  const Importo addebito = generatore_.Euro(120, 480);
  Registra(giorni[2], "001",
           {{"C", CodiceParteDemo(generatore_.Indice(kClientiDemo.size()) + 1), addebito, nota},
            Conto("710.090", -addebito, nota)});
  const Importo premio = generatore_.Euro(280, 420);
  Registra(giorni[2], "001",
           {Conto("520.007", premio, "Premio polizza " + testo),
            {"F", CodiceParteDemo(2), -premio, "Premio polizza " + testo}});
}

void LibroDemo::Liquidazione(const std::string& trimestre, Data data) {
  Documenti(std::min(data, oggi_));
  const std::string testo = "Liquidazione IVA " + trimestre;
  std::vector<RigaDemo> righe;
  Importo iva;
  for (const std::string_view conto : {kIvaDebito, kIvaCredito}) {
    const Importo saldo = Saldo("P", conto);
    if (saldo.Zero()) continue;
    righe.push_back(Conto(conto, -saldo, testo));
    iva += saldo;
  }
  if (righe.empty() || iva.Zero()) return;
  righe.push_back(Conto(kErarioIva, iva, testo));
  Registra(data, "027", righe);
}

void LibroDemo::FineAnno(int anno) {
  const Data data = Data::DaGma(31, 12, anno).value();
  const auto registra = [&](std::string_view causale, std::string_view dare, std::string_view avere,
                            std::int64_t euro, const std::string& testo) {
    Registra(
        data, causale,
        {Conto(dare, Importo::DaUnita(euro), testo), Conto(avere, Importo::DaUnita(-euro), testo)});
  };
  registra("039", "570.004", "220.005", 2'775, "Ammortamento attrezzature");
  registra("039", "570.006", "220.008", 4'800, "Ammortamento autocarri");
  registra("026", "560.004", "320.001", 2'510, "Accantonamento TFR dell'anno");
}

}  // namespace fenalto::demo
