#include "ledger/CreaDemo.h"

#include <array>
#include <map>
#include <span>
#include <utility>

#include "core/session/CreaDitta.h"
#include "core/values/Aritmetica.h"
#include "ledger/DatiDemo.h"
#include "ledger/Primanota.h"

namespace fenalto {

namespace {

constexpr const char* kDitta = "Demo";

constexpr std::string_view kCassa = "100.010";
constexpr std::string_view kBanca = "110.001";
constexpr std::string_view kClienti = "120.001";
constexpr std::string_view kIvaDebito = "170.001";
constexpr std::string_view kErarioIva = "170.010";
constexpr std::string_view kMutuo = "350.010";
constexpr std::string_view kFornitori = "400.001";
constexpr std::string_view kRitenute = "420.001";
constexpr std::string_view kInps = "430.001";
constexpr std::string_view kDipendenti = "440.001";

constexpr std::array<std::string_view, 12> kMesi = {
    "gennaio", "febbraio", "marzo",     "aprile",  "maggio",   "giugno",
    "luglio",  "agosto",   "settembre", "ottobre", "novembre", "dicembre"};

/// Nobody to ask: every question takes its default, and the last message is kept.
class DialoghiMuti final : public Dialoghi {
 public:
  void Messaggio(const std::string& testo, Icona /*icona*/) override { ultimo = testo; }
  Risposta Domanda(const std::string& /*testo*/, Bottoni /*bottoni*/, Risposta predefinita,
                   const std::string& /*titolo*/, Icona /*icona*/) override {
    return predefinita;
  }
  std::optional<std::string> Chiedi(const std::string& /*testo*/,
                                    const std::string& /*iniziale*/) override {
    return std::nullopt;
  }
  std::optional<SceltaUscita> ScegliUscita(const std::string& /*rapporto*/,
                                           bool /*esporta*/) override {
    return std::nullopt;
  }
  std::optional<std::filesystem::path> ScegliFile(const std::string& /*titolo*/, ModoFile /*modo*/,
                                                  const std::string& /*filtro*/) override {
    return std::nullopt;
  }
  std::optional<SceltaDitta> ScegliDitta(
      const std::vector<DittaTrovata>& /*ditte*/,
      const std::function<std::vector<int>(const std::string&, std::string&)>& /*anniDi*/)
      override {
    return std::nullopt;
  }
  std::optional<Credenziali> ChiediAccesso(const std::string& /*avviso*/) override {
    return std::nullopt;
  }
  std::unique_ptr<Avanzamento> Avvia(const std::string& /*testo*/,
                                     std::int64_t /*totale*/) override {
    return std::make_unique<AvanzamentoMuto>();
  }
  bool ApriEsterno(const std::string& /*fileOIndirizzo*/) override { return false; }

  std::string ultimo;

 private:
  class AvanzamentoMuto final : public Avanzamento {
   public:
    bool Avanza(std::int64_t /*fatto*/) override { return true; }
  };
};

/// The same numbers every time, so that the demo of a day is always the same.
class Generatore {
 public:
  /// An amount in euro and cents, from `minimo` to `massimo` euro.
  Importo Euro(std::int64_t minimo, std::int64_t massimo) {
    const auto centesimi = static_cast<std::uint64_t>((massimo - minimo) * 100 + 1);
    return Importo::DaDecimillesimi(
        (minimo * 100 + static_cast<std::int64_t>(Prossimo() % centesimi)) * 100);
  }
  std::size_t Indice(std::size_t quanti) { return static_cast<std::size_t>(Prossimo() % quanti); }

 private:
  std::uint64_t Prossimo() {
    stato_ = stato_ * 6'364'136'223'846'793'005U + 1'442'695'040'888'963'407U;
    return stato_ >> 33U;
  }
  std::uint64_t stato_ = 20'240'315;
};

/// Debit above zero, credit below.
struct RigaDemo {
  std::string cfp;
  std::string conto;
  Importo importo;
  std::string descrizione;
};

RigaDemo Conto(std::string_view conto, Importo importo, std::string descrizione) {
  return {"P", std::string(conto), importo, std::move(descrizione)};
}

std::string Codice(std::size_t numero) {
  const std::string cifre = std::to_string(numero);
  return std::string(4 - cifre.size(), '0') + cifre;
}

/// Writes the registrations and keeps the balances that the next ones need.
class LibroDemo {
 public:
  LibroDemo(Ambiente& ambiente, DialoghiMuti& dialoghi, Data oggi)
      : ambiente_(ambiente), dialoghi_(dialoghi), oggi_(oggi), primanota_(ambiente) {}

  void PrimoAnno(int anno);
  void SecondoAnno(int anno);

 private:
  void Registra(Data data, std::string_view causale, const std::vector<RigaDemo>& righe,
                std::string_view modello = "");
  void Scegli(int anno);
  void Anno(int anno);
  void Mese(int anno, int mese);
  void PagaPersonale(Data data);
  void VersaF24(const std::string& mese, Data data);
  void Stipendi(const std::string& mese, Data data, std::string_view modello);
  void Corrispettivi(const std::string& mese, Data data);
  /// Two customers pay, or two suppliers are paid, what is open.
  void PartiteAperte(const std::string& cfp, Data data);
  void Trimestre(const std::string& testo, const std::array<Data, 3>& giorni);
  void FineAnno(int anno);

  [[nodiscard]] Importo Saldo(const std::string& cfp, std::string_view conto) const {
    const auto trovato = saldi_.find({cfp, std::string(conto)});
    return trovato == saldi_.end() ? Importo() : trovato->second;
  }
  /// A day of a month that isn't a Sunday.
  static Data Giorno(int giorno, int mese, int anno) {
    const Data data = Data::DaGma(giorno, mese, anno).value();
    return data.GiornoSettimana() == 7 ? data.PiuGiorni(-1) : data;
  }

  Ambiente& ambiente_;
  DialoghiMuti& dialoghi_;
  Data oggi_;
  Primanota primanota_;
  Generatore generatore_;
  std::map<std::pair<std::string, std::string>, Importo> saldi_;
  int primoAnno_ = 0;
  int note_ = 0;
};

void LibroDemo::Registra(Data data, std::string_view causale, const std::vector<RigaDemo>& righe,
                         std::string_view modello) {
  if (data > oggi_) return;
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
    aggiungi({"C", Codice(n), generatore_.Euro(400, 4'800), testo});
  }
  for (std::size_t n = 1; n <= kFornitoriDemo.size(); ++n) {
    aggiungi({"F", Codice(n), -generatore_.Euro(300, 5'200), testo});
  }
  aggiungi(Conto("300.012", -totale, testo));
  Registra(Data::DaGma(1, 1, anno).value(), kCausaleApertura, righe);
  Anno(anno);
}

void LibroDemo::SecondoAnno(int anno) {
  Scegli(anno);
  const std::string testo = "Saldo di apertura " + std::to_string(anno);
  std::vector<RigaDemo> righe;
  Importo totale;
  for (const auto& [conto, saldo] : saldi_) {
    // Accounts of the masters from 500 on are of the year's result.
    if (saldo.Zero() || (conto.first == "P" && conto.second >= "500")) continue;
    righe.push_back({conto.first, conto.second, saldo, testo});
    totale += saldo;
  }
  righe.push_back(Conto(totale.Negativo() ? "300.011" : "300.010", -totale, testo));
  saldi_.clear();
  Registra(Data::DaGma(1, 1, anno).value(), kCausaleApertura, righe);
  Anno(anno);
}

void LibroDemo::Anno(int anno) {
  for (int mese = 1; mese <= 12; ++mese) Mese(anno, mese);
  FineAnno(anno);
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
  std::vector<RigaDemo> righe;
  Importo totale;
  for (const std::string_view conto : {kRitenute, kInps, kErarioIva}) {
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
  const Importo netto = generatore_.Euro(5'600, 8'400);
  const Importo iva = CalcolaIva(netto, Importo::DaUnita(22), true);
  const Importo contanti = Importo::DaUnita((netto + iva).ParteIntera() / 4);
  const std::string testo = "Corrispettivi " + mese;
  Registra(data, "037",
           {Conto(kCassa, contanti, testo), Conto(kBanca, netto + iva - contanti, testo),
            Conto("700.010", -netto, testo), Conto(kIvaDebito, -iva, testo)});
}

void LibroDemo::PartiteAperte(const std::string& cfp, Data data) {
  const bool clienti = cfp == "C";
  const std::size_t quanti = clienti ? kClientiDemo.size() : kFornitoriDemo.size();
  const std::string testo = clienti ? "Incasso a saldo" : "Pagamento a saldo";
  std::vector<RigaDemo> righe;
  Importo totale;
  const std::size_t primo = generatore_.Indice(quanti);
  for (std::size_t passo = 0; passo < quanti && righe.size() < 2; ++passo) {
    const std::string codice = Codice((primo + passo) % quanti + 1);
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
  const Importo versato = Importo::DaUnita((Saldo("P", kCassa).ParteIntera() / 100 - 5) * 100);
  if (versato > Importo()) {
    Registra(giorni[1], "005",
             {Conto(kBanca, versato, "Versamento contanti"),
              Conto(kCassa, -versato, "Versamento contanti")});
  }
  const Importo iva = Saldo("P", kIvaDebito);
  Registra(giorni[2], "027",
           {Conto(kIvaDebito, -iva, "Liquidazione IVA " + testo),
            Conto(kErarioIva, iva, "Liquidazione IVA " + testo)});
  ++note_;
  const std::string nota = "Nota di addebito n. " + std::to_string(note_) + " (fuori campo IVA)";
  const Importo addebito = generatore_.Euro(120, 480);
  Registra(giorni[2], "001",
           {{"C", Codice(generatore_.Indice(kClientiDemo.size()) + 1), addebito, nota},
            Conto("710.090", -addebito, nota)});
  const Importo premio = generatore_.Euro(280, 420);
  Registra(giorni[2], "001",
           {Conto("520.007", premio, "Premio polizza " + testo),
            {"F", Codice(2), -premio, "Premio polizza " + testo}});
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

// --- Parties and settings ------------------------------------------------------------------------

void ScriviAnagrafiche(Archivio& tessarc, std::span<const AnagraficaDemo> anagrafiche,
                       const char* tabella, const char* cfp, std::string_view conto) {
  for (std::size_t n = 0; n < anagrafiche.size(); ++n) {
    const AnagraficaDemo& a = anagrafiche[n];
    const std::string codice = Codice(n + 1);
    tessarc.Inserisci(tabella, {{"Cod", codice},
                                {"ragsoc1", a.ragsoc1},
                                {"indirizzo", a.indirizzo},
                                {"cap", a.cap},
                                {"localita", a.localita},
                                {"Prov", a.provincia},
                                {"Conto", conto}});
    tessarc.Inserisci("ContiClientiFornitori",
                      {{"Cod", codice}, {"CFP", cfp}, {"Descrizione", a.ragsoc1}});
  }
}

void ScriviImpostazioni(Ambiente& ambiente) {
  // The blank after ragsoc1 belongs to the key.
  const std::array<std::pair<std::string_view, std::string_view>, 7> impostazioni = {
      {{"ragsoc1 ", "EMPORIO BELLOSGUARDO S.R.L."},
       {"ragsoc2", "ferramenta e casalinghi"},
       {"indirizzo", "Via delle Botteghe 21"},
       {"localita", "40068 San Lazzaro di Savena BO"},
       {"piva", "01234567897"},
       {"codfisc", "01234567897"},
       {"NAZIONE", "IT"}}};
  for (const auto& [chiave, valore] : impostazioni) {
    ambiente.ScriviImpostazione("", "config", chiave, valore);
  }
}

}  // namespace

Esito<bool> CreaDemoSeVuota(const OpzioniAmbiente& opzioni, Orologio& orologio) {
  DialoghiMuti dialoghi;
  CasoDiSistema caso;
  OpzioniAmbiente senzaCopie = opzioni;
  senzaCopie.copie = false;
  Ambiente ambiente(senzaCopie, dialoghi, orologio, caso);
  if (!ambiente.DitteTrovate().empty()) return false;

  const int corrente = orologio.Oggi().Anno();
  if (auto creata =
          CreaDittaDaModello(opzioni, kDitta, {{corrente - 1, true}, {corrente, true}}, true);
      !creata) {
    return creata;
  }
  if (auto aperta = ambiente.ApriDitta(kDitta, corrente); !aperta) return aperta;
  try {
    ScriviImpostazioni(ambiente);
    LibroDemo libro(ambiente, dialoghi, orologio.Oggi());
    // One for all: the first start waits for the disk once, not at every registration.
    Transazione transazione(ambiente.Basi());
    Archivio& tessarc = ambiente.ArchivioDi("tessarc");
    ScriviAnagrafiche(tessarc, kClientiDemo, "Clienti", "C", kClienti);
    ScriviAnagrafiche(tessarc, kFornitoriDemo, "Fornitori", "F", kFornitori);
    libro.PrimoAnno(corrente - 1);
    libro.SecondoAnno(corrente);
    transazione.Conferma();
  } catch (const ErroreArchivio& e) {
    return Errore{std::string("la ditta Demo è stata creata, ma senza registrazioni: ") + e.what()};
  }
  ambiente.ChiudiDitta();
  return true;
}

}  // namespace fenalto
