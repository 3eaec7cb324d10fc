#include <algorithm>
#include <map>

#include "core/reports/Rapporto.h"
#include "core/reports/TestoStampato.h"
#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "ledger/accounts/RicercaRegistrazioni.h"
#include "ledger/accounts/SaldoConto.h"
#include "ledger/journal/GiornaleInterno.h"

namespace fenalto::ledger {

namespace {

/// Registrations between two signs of life.
constexpr std::int64_t kOgni = 200;

constexpr const char* kTestata =
    "                       LIBRO GIORNALE                  Anno/pag. $$$$/$$$$$$";
constexpr const char* kPeriodo =
    "                                        Giornale contabilità dal $$$$$$$$ al $$$$$$$$";
constexpr const char* kColonne =
    "DATA REG.CONTO  DESCRIZ.CONTO / CAUSALE / DESCRIZ. MOVIMENTO                                  "
    " "
    "                DARE       AVERE ";

constexpr const char* kArticolo = "$$$$$$$$$$$$$                  $$$$$$$$ $$$$$$$$$$$$$$$$$$$$$";
/// The account's code, before the two texts and the amount.
constexpr const char* kRiga =
    "         $$$$$$$$ "
    "§§§§§§§§§§§§§§§§§§§§§§§§§§§§§§ $$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$ ";
constexpr const char* kSeguito =
    "                                                 "
    "$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$";
constexpr const char* kImporto = "ççççççççççççççç";
constexpr std::size_t kTestoLargo = 46;
constexpr std::size_t kLarghezza = 128;
constexpr std::size_t kTotaliLargo = 95;

constexpr const char* kCompatta =
    "$$$$$$$$ $$$$$$ "
    "$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$"
    "$$$$$$$$$$$ ";
constexpr std::size_t kCodiceCompatto = 6;
constexpr std::size_t kLarghezzaCompatta = 132;
constexpr std::size_t kTotaliCompatti = 98;

/// A row of the journal with its head's data.
struct RigaGiornale {
  Data dt;
  std::int64_t numDoc = 0;
  std::int64_t nProt = 0;
  std::string causale;
  std::string descrizione;
  std::string cfp;
  std::string conto;
  Importo dare;
  Importo avere;
  bool prima = false;  ///< opens its registration
};

/// Hears which output was chosen.
class Ascolto : public reports::FabbricaUscite {
 public:
  explicit Ascolto(reports::FabbricaUscite& uscite) : uscite_(uscite) {}
  std::unique_ptr<reports::Uscita> Crea(const SceltaUscita& scelta,
                                        const std::string& rapporto) override {
    anteprima = scelta.destinazione == Destinazione::Anteprima;
    return uscite_.Crea(scelta, rapporto);
  }
  bool anteprima = false;

 private:
  reports::FabbricaUscite& uscite_;
};

std::string TestoRighe(const SceltaGiornale& scelta, int anno) {
  return "SELECT Articoli.Dt, Articoli.NumDoc, Articoli.NProt, Movimenti.Causale, "
         "Movimenti.Descrizione, Movimenti.CFP, Movimenti.Conto, Movimenti.ImpoDare, "
         "Movimenti.ImpoAvere FROM Articoli INNER JOIN Movimenti ON (Articoli.Anno = "
         "Movimenti.Anno) AND (Articoli.NumDoc = Movimenti.NumDoc) WHERE " +
         CondizioneGiornale(scelta, anno) + " AND " +
         sql::Criterio("Movimenti.Causale", "<>", kCausaleAperturaProvvisoria) +
         (scelta.perArticolo ? " ORDER BY Articoli.DT, Articoli.numdoc, Movimenti.POSI"
                             : " ORDER BY Articoli.DT, Articoli.riva DESC, Articoli.numdoc, "
                               "Movimenti.POSI");
}

/// Two texts with `segno` between; nothing stands beside an empty one.
std::string Unisci(const std::string& a, std::string_view segno, const std::string& b) {
  if (a.empty() || b.empty()) return a + b;
  std::string insieme;
  insieme.reserve(a.size() + segno.size() + b.size());
  return insieme.append(a).append(segno).append(b);
}

class TabulatoGiornale {
 public:
  TabulatoGiornale(Ambiente& ambiente, reports::FabbricaUscite& uscite,
                   const SceltaGiornale& scelta)
      : ambiente_(ambiente),
        scelta_(scelta),
        compatta_(scelta.stampaCompatta),
        uscite_(uscite),
        rapporto_(ambiente, uscite_),
        dare_(Fascia("", compatta_ ? Spazi(9) : "", "R_DARE")),
        avere_(Fascia(Spazi(compatta_ ? 9 : 16), "", "R_AVERE")),
        totali_(
            rapporto_.Prepara({reports::Ripeti("$", compatta_ ? kTotaliCompatti : kTotaliLargo) +
                                   " " + kImporto + Spazi(compatta_ ? 3 : 1) + kImporto,
                               {"R_SCRITTATOT", "R_TOTDARE", "R_TOTAVERE"},
                               true})) {}

  bool Esegui() {
    reports::Cornice cornice{
        "libro giornale",
        "Libro giornale dal " + scelta_.daDt.Testo() + " al " + scelta_.aaDt.Testo(),
        "TiGio",
        compatta_ ? kLarghezzaCompatta : kLarghezza,
        scelta_.stGrafico,
        scelta_.xTar,
        true};
    if (!rapporto_.Apri(cornice, [this] { Testata(); })) return false;
    if (!rapporto_.Grafico() && uscite_.anteprima) {
      ambiente_.Dialogo().Messaggio(
          "la stampa su 'video' del giornale non è formattata e serve solo per controllo.");
    }
    rapporto_.Riporta(reports::Riporto{
        totali_, [this] { return std::vector<Valore>{progressivoDare_, progressivoAvere_}; }});
    if (!Scorri()) return false;
    rapporto_.Spazio(2, true);
    rapporto_.Filo("=");
    rapporto_.Riga(totali_,
                   {"totali   dal " + scelta_.daDt.Testo() + "  al " + scelta_.aaDt.Testo(),
                    progressivoDare_, progressivoAvere_});
    return rapporto_.Fine();
  }

 private:
  static std::string Spazi(std::size_t n) { return reports::Ripeti(" ", n); }

  [[nodiscard]] reports::Fascia Fascia(const std::string& prima, const std::string& dopo,
                                       const char* campo) const {
    return rapporto_.Prepara(
        {(compatta_ ? kCompatta : kRiga) + prima + kImporto + dopo,
         {"R_conto", "R_DESCRCONTO", "R_DESCRIZIONE", campo, "R_Dt", "R_nart"}});
  }

  bool Scorri() {
    Archivio& archivio = ambiente_.ArchivioDi("tessarc");
    const std::int64_t totale = archivio
                                    .Singolo("SELECT Count(*) FROM Articoli WHERE " +
                                             CondizioneGiornale(scelta_, ambiente_.Anno()))
                                    .Intero();
    rapporto_.Avvia("Libro giornale", totale, kOgni);
    std::int64_t numero = -1;
    Rs rs = archivio.Recordset(TestoRighe(scelta_, ambiente_.Anno()));
    for (; !rs.Eof() && !rapporto_.Interrotta(); rs.MoveNext()) {
      RigaGiornale riga;
      riga.numDoc = rs.Fields(1).Intero();
      riga.prima = riga.numDoc != numero;
      if (riga.prima && !rapporto_.Passo()) return false;
      numero = riga.numDoc;
      riga.dt = rs.Fields(0).Data();
      riga.nProt = rs.Fields(2).Intero();
      riga.causale = rs.Fields(3).Testo();
      riga.descrizione = rs.Fields(4).Testo();
      riga.cfp = rs.Fields(5).Testo();
      riga.conto = rs.Fields(6).Testo();
      riga.dare = rs.Fields(7).Importo();
      riga.avere = rs.Fields(8).Importo();
      Riga(riga);
    }
    return true;
  }

  void Testata() {
    if (rapporto_.Grafico()) return TestataModello();
    if (scelta_.intesto) TestataDitta();
    rapporto_.Riga({kPeriodo}, {scelta_.daDt, scelta_.aaDt});
    rapporto_.Rigo("=");
    rapporto_.Carta().Riga(kColonne);
    rapporto_.Rigo("-");
  }

  [[nodiscard]] int Pagina() { return scelta_.daPag + rapporto_.Carta().NumeroPagina() - 1; }

  void TestataDitta() {
    rapporto_.Riga({kTestata, {}, true}, {ambiente_.Anno(), Pagina()});
    const reports::DatiDitta& ditta = rapporto_.Ditta();
    rapporto_.Titolo("", ditta.ragSoc1_2);
    rapporto_.Titolo("", ditta.indirizzoLocalita);
    rapporto_.Titolo("", reports::CodiciDitta(ditta));
  }

  void TestataModello() {
    if (scelta_.intesto) {
      rapporto_.TestataDitta(Pagina());
      rapporto_.Titolo("ScrittaAnnoPag", "Anno/Pag.");
      rapporto_.Titolo("AnnoPag",
                       std::to_string(ambiente_.Anno()) + "/" + std::to_string(Pagina()));
    }
    rapporto_.Titolo("TITOLO", "GIORNALE DI TESSARC'");
    rapporto_.Titolo("TITOLO2", " dal " + scelta_.daDt.Testo() + "  al " + scelta_.aaDt.Testo());
    rapporto_.Piede("DADT", scelta_.daDt);
    rapporto_.Piede("AADT", scelta_.aaDt);
  }

  void Riga(const RigaGiornale& riga) {
    if (!riga.dare.Zero() && !riga.avere.Zero()) {
      // A row has one amount; one that came with both prints as two.
      RigaGiornale sola = riga;
      sola.avere = {};
      Riga(sola);
      sola = riga;
      sola.dare = {};
      sola.prima = false;
      return Riga(sola);
    }
    const Rinvio rinvio = AllaRegistrazione(ambiente_.Anno(), riga.numDoc);
    compatta_ && !rapporto_.Grafico() ? RigaCompatta(riga, rinvio) : RigaIntera(riga, rinvio);
  }

  /// On the page, with its amount among those carried forward: its text may go on on the next.
  void Stendi(const RigaGiornale& riga, const std::vector<Valore>& valori, const Rinvio& rinvio) {
    rapporto_.Riga(riga.avere.Zero() ? dare_ : avere_, valori, rinvio);
    progressivoDare_ += riga.dare;
    progressivoAvere_ += riga.avere;
  }

  /// Article and protocol on one line.
  [[nodiscard]] std::string Riferimento(const RigaGiornale& riga) const {
    std::string testo;
    if (scelta_.stampaNArticolo) testo = "art. " + std::to_string(riga.numDoc);
    if (riga.nProt != 0) testo += "/prot " + std::to_string(riga.nProt);
    return testo;
  }

  /// The line of the article, which only the text form has.
  void Articolo(const RigaGiornale& riga, const Rinvio& rinvio) {
    Valore articolo;
    if (scelta_.stampaNArticolo) {
      rapporto_.Carta().Campo(1, riga.numDoc);
      articolo = rapporto_.Carta().Formato("art. #####,");
    }
    Valore protocollo;
    if (riga.nProt != 0) protocollo = "n.protocollo Iva " + std::to_string(riga.nProt);
    rapporto_.Riga({kArticolo}, {articolo, riga.dt, protocollo}, rinvio);
  }

  void RigaIntera(const RigaGiornale& riga, const Rinvio& rinvio) {
    const std::string testo =
        Unisci(Causale(riga.causale), compatta_ ? " / " : " ", riga.descrizione);
    if (rapporto_.Grafico()) return RigaGrafica(riga, testo, rinvio);
    static const reports::Fascia kContinua{kSeguito};
    rapporto_.Spazio(riga.prima ? 2 : 1);
    if (riga.prima) Articolo(riga, rinvio);
    const std::vector<std::string> pezzi = reports::InRighe(testo, kTestoLargo);
    Stendi(riga,
           {riga.conto, conti_.Di(riga.cfp, riga.conto), pezzi.front(), riga.dare + riga.avere},
           rinvio);
    for (std::size_t i = 1; i < pezzi.size(); ++i) {
      rapporto_.Spazio(1);
      rapporto_.Riga(kContinua, {pezzi[i]}, rinvio);
    }
  }

  /// Neither the account's name nor the text is cut: they go on under themselves.
  void RigaGrafica(const RigaGiornale& riga, const std::string& testo, const Rinvio& rinvio) {
    static const reports::Fascia kContinua{"", {"R_DESCRCONTO", "R_DESCRIZIONE"}};
    std::vector<std::string> nomi =
        rapporto_.InCampo("R_DESCRCONTO", conti_.Di(riga.cfp, riga.conto), kTestoLargo);
    std::vector<std::string> testi = rapporto_.InCampo("R_DESCRIZIONE", testo, kTestoLargo);
    const std::size_t righe = std::max(nomi.size(), testi.size());
    nomi.resize(righe);
    testi.resize(righe);
    rapporto_.Spazio(1);
    std::vector<Valore> valori{riga.conto, nomi.front(), testi.front(), riga.dare + riga.avere};
    if (riga.prima) valori.insert(valori.end(), {riga.dt, Riferimento(riga)});
    Stendi(riga, valori, rinvio);
    for (std::size_t i = 1; i < righe; ++i) {
      rapporto_.Spazio(1);
      rapporto_.Riga(kContinua, {nomi[i], testi[i]}, rinvio);
    }
  }

  void RigaCompatta(const RigaGiornale& riga, const Rinvio& rinvio) {
    rapporto_.Spazio(1);
    // A code that its place would cut goes before the description, so that none is half told.
    const bool cabe = LunghezzaTesto(riga.conto) <= kCodiceCompatto;
    std::string testo = riga.prima ? Riferimento(riga) : "";
    if (!cabe) testo = Unisci(testo, " ", riga.conto);
    testo = Unisci(testo, " ", conti_.Di(riga.cfp, riga.conto));
    testo = Unisci(testo, " / ", Causale(riga.causale));
    testo = Unisci(testo, " / ", riga.descrizione);
    Stendi(riga,
           {riga.prima ? Valore(riga.dt) : Valore(), cabe ? Valore(riga.conto) : Valore(), testo,
            riga.dare + riga.avere},
           rinvio);
  }

  const std::string& Causale(const std::string& cod) {
    const auto [nota, nuova] = causali_.try_emplace(cod);
    if (nuova) {
      nota->second = NzStr(ambiente_.Cerca("tessarc", "Causali", {{"Cod", cod}}, "DESCRIZIONE"));
    }
    return nota->second;
  }

  Ambiente& ambiente_;
  const SceltaGiornale& scelta_;
  bool compatta_;
  Ascolto uscite_;
  reports::Rapporto rapporto_;
  reports::Fascia dare_;
  reports::Fascia avere_;
  reports::Fascia totali_;
  Importo progressivoDare_;
  Importo progressivoAvere_;
  DescrizioniConti conti_{ambiente_};
  std::map<std::string, std::string> causali_;
};

}  // namespace

bool StampaRigheGiornale(Ambiente& ambiente, reports::FabbricaUscite& uscite,
                         const SceltaGiornale& scelta) {
  return TabulatoGiornale(ambiente, uscite, scelta).Esegui();
}

}  // namespace fenalto::ledger
