// Printed form of the VAT registers of a period: rows with amounts carried forward, totals by code,
// the page of the ventilation, the settlement. Rows are read forward and none is kept.
#include <algorithm>
#include <optional>
#include <unordered_map>

#include "core/reports/Rapporto.h"
#include "core/reports/TestoStampato.h"
#include "core/sql/Criterio.h"
#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"
#include "ledger/accounts/ContiClientiFornitori.h"
#include "vat/codes/TipiRegistro.h"
#include "vat/register/RegistroIvaInterno.h"
#include "vat/settlement/TotaliInterno.h"

namespace fenalto::vat {
namespace {

/// Registrations between two signs of life.
constexpr std::int64_t kOgni = 200;

constexpr std::size_t kLarghezza = 132;
/// Characters of a party's name, of a document's number and of a VAT code's description on the
/// first line of a registration.
constexpr std::size_t kNome = 23;
constexpr std::size_t kNumero = 12;
constexpr std::size_t kIva = 9;
/// What stands before the four amounts.
constexpr std::size_t kPrimaImporti = 72;
constexpr std::size_t kRientro = 17;
/// What stands at the right of a heading.
constexpr std::size_t kDestra = 28;
constexpr std::size_t kCodice = 6;

/// Lines of a registration that are kept on one page; longer ones go on to the next.
constexpr std::size_t kInsieme = 20;

/// Parties known by heart: enough for a year of most firms, little enough for any.
constexpr std::size_t kMassimoParti = 20'000;

constexpr const char* kColonne =
    "data reg   prot. cliente/fornitore       documento    del      iva            imponibile "
    " "
    "          iva   iva indetr.         totale";
constexpr const char* kTotale = "                          TOTALE";
constexpr const char* kRigaQuota = "$$$$ $$$$ ##.###.###,###  $$$$$$$$$";
constexpr std::size_t kLargoQuota = 9;
constexpr const char* kRigaAcquisti = "importo acquisti ##.###.###,###";

/// Amounts of a printed line.
struct ImportiRiga {
  Importo imponibile;
  Importo iva;
  Importo ivaInd;
  ImportiRiga& operator+=(const ImportiRiga& altri) {
    imponibile += altri.imponibile;
    iva += altri.iva;
    ivaInd += altri.ivaInd;
    return *this;
  }
  /// Most rows have no tax that can't be deducted, and a column of zeros would hide those that do.
  [[nodiscard]] std::vector<Valore> Celle() const {
    return {imponibile, iva, ivaInd.Zero() ? Valore() : Valore(ivaInd), imponibile + iva + ivaInd};
  }
  /// After the values of a line's beginning.
  [[nodiscard]] std::vector<Valore> Dopo(std::vector<Valore> prima) const {
    for (Valore& cella : Celle()) prima.push_back(std::move(cella));
    return prima;
  }
};

/// A registration of a register, or a further row of it.
struct RigaRegistro {
  std::int64_t nProt = 0;
  std::int64_t numDoc = 0;
  int anno = 0;
  Data dt;
  std::string cfp;
  std::string conto;
  Data dtFat;
  std::string nFat;
  bool ep = false;
  Data dtIncasso;
  std::string codIva;
  ImportiRiga importi;
};

constexpr const char* kColonneLette =
    "SELECT Articoli.NProt, Articoli.NumDoc, Articoli.Anno, Articoli.Dt, Articoli.CFP, "
    "Articoli.Conto, Articoli.DtFat, Articoli.NFat, Articoli.Ep, Articoli.DtIncasso, "
    "Movimenti.CodIva, Movimenti.Imponibile, Movimenti.Iva, Movimenti.IvaInd FROM ";
constexpr const char* kGiunzione =
    " INNER JOIN Movimenti ON (Articoli.Anno = Movimenti.Anno) AND (Articoli.NumDoc = "
    "Movimenti.NumDoc) WHERE ";

/// What all rows of a registration share; the rest is left empty.
RigaRegistro LeggiTesta(const Rs& rs) {
  RigaRegistro riga;
  riga.nProt = rs.Fields(0).Intero();
  riga.numDoc = rs.Fields(1).Intero();
  riga.anno = static_cast<int>(rs.Fields(2).Intero());
  riga.dt = rs.Fields(3).Data();
  riga.cfp = rs.Fields(4).Testo();
  riga.conto = rs.Fields(5).Testo();
  riga.dtFat = rs.Fields(6).Data();
  riga.nFat = rs.Fields(7).Testo();
  riga.ep = rs.Fields(8).Booleano();
  riga.dtIncasso = rs.Fields(9).Data();
  return riga;
}

void LeggiImporti(const Rs& rs, RigaRegistro& riga) {
  riga.codIva = rs.Fields(10).Testo();
  riga.importi = {rs.Fields(11).Importo(), rs.Fields(12).Importo(), rs.Fields(13).Importo()};
}

/// "33,33333", from hundred-thousandths of a percent.
std::string ScriviQuota(std::int64_t quota) {
  constexpr std::size_t kDecimali = 5;
  std::string cifre = std::to_string(quota < 0 ? -quota : quota);
  if (cifre.size() <= kDecimali) cifre.insert(0, kDecimali + 1 - cifre.size(), '0');
  cifre.insert(cifre.size() - kDecimali, ",");
  return (quota < 0 ? "-" : "") + cifre;
}

/// The pieces that aren't empty, with `segno` between.
std::string Accosta(const std::vector<std::string>& pezzi, std::string_view segno = " ") {
  std::string insieme;
  for (const std::string& pezzo : pezzi) {
    if (pezzo.empty()) continue;
    if (!insieme.empty()) insieme += segno;
    insieme += pezzo;
  }
  return insieme;
}

/// A line that begins with a text of `campo`, before the four amounts.
reports::Fascia ConImporti(bool euro, const char* campo, const std::string& prefisso,
                           bool grassetto) {
  const std::string importo = euro ? " ###.###.###,##" : " #.###.###.###,";
  return {reports::Ripeti("$", kPrimaImporti) + importo + importo + importo + importo,
          {campo, prefisso + "IMPONIBILE", prefisso + "IVA", prefisso + "IVAIND", prefisso + "TOT"},
          grassetto};
}

/// The first line of a registration, or a further row.
reports::Fascia RigaPrima(bool euro) {
  reports::Fascia fascia = ConImporti(euro, "", "R_", false);
  fascia.sagoma = "$$$$$$$$ ######, " + reports::Ripeti("$", kNome) + " " +
                  reports::Ripeti("$", kNumero) + " $$$$$$$$ " + reports::Ripeti("$", kIva) +
                  fascia.sagoma.substr(kPrimaImporti);
  fascia.campi.erase(fascia.campi.begin());
  fascia.campi.insert(fascia.campi.begin(),
                      {"R_dt", "R_Nprot", "R_DESCRIZIONE", "R_NFAT", "R_DTFAT", "R_DESCRIVA"});
  return fascia;
}

/// What the text form says of a code stands in one column, the model has two.
reports::Fascia RigaCodice(bool euro) {
  reports::Fascia fascia = ConImporti(euro, "R_DESCRIZIONE", "R_", false);
  fascia.campi.emplace_back("R_DESCRIVA");
  return fascia;
}

class TabulatoRegistroIva {
 public:
  TabulatoRegistroIva(Ambiente& ambiente, reports::FabbricaUscite& uscite,
                      const DatiStampaRegistro& dati, const OpzioniRegistroIva& opzioni)
      : ambiente_(ambiente),
        rapporto_(ambiente, uscite),
        dati_(dati),
        opzioni_(opzioni),
        riga_(RigaPrima(ambiente.Euro())),
        rigaCodice_(RigaCodice(ambiente.Euro())),
        totale_(ConImporti(ambiente.Euro(), "R_SCRITTATOT", "R_TOT", true)) {
    // The tax code stands beside the address, where the firm wants it.
    if (!opzioni.stIndirizzo) rapporto_.Ditta().codFisc.clear();
  }

  /// Number of the last page; nothing when the user gave up, cancelled, or the output failed.
  std::optional<int> Esegui() {
    const reports::Cornice cornice{"registro iva unico",
                                   "Registro iva unico " + dati_.periodo.testo,
                                   "TiRiva",
                                   kLarghezza,
                                   opzioni_.stGrafico,
                                   opzioni_.xTar,
                                   true};
    if (!rapporto_.Apri(cornice, [this] { Testata(); })) return std::nullopt;
    std::int64_t quanti = 0;
    for (const TotaleRegistro& totale : dati_.totali) {
      const IntervalloRegistro& i = totale.intervallo;
      if (!i.daIncassi && !i.Vuoto()) quanti += i.aaNProt - i.daNProt + 1;
    }
    rapporto_.Avvia("Registro IVA", quanti, kOgni);
    if (!opzioni_.soloChiusura) {
      for (const TotaleRegistro& totale : dati_.totali) {
        if (!Registro(totale)) return std::nullopt;
      }
    }
    if (dati_.conLiquidazione) {
      sezione_ = dati_.periodo.Annuale() ? "Riepilogo annuale" : "Liquidazione periodica";
      conColonne_ = false;
      StampaLiquidazione(ambiente_, rapporto_.Carta(), dati_.liquidazione);
    }
    const bool interrotta = rapporto_.Interrotta();
    const int ultima = dati_.primaPagina + std::max(rapporto_.Carta().NumeroPagina(), 1) - 1;
    if (interrotta || !rapporto_.Fine()) return std::nullopt;
    return ultima;
  }

 private:
  struct Parte {
    std::string nome;
    std::string indirizzo;
    std::string codice;  ///< VAT number or tax code
  };

  // --- Heads -------------------------------------------------------------------------------------

  void Testata() {
    const std::string pagina =
        std::to_string(dati_.periodo.anno) + "/" +
        std::to_string(dati_.primaPagina + rapporto_.Carta().NumeroPagina() - 1);
    rapporto_.Grafico() ? TestataModello(pagina) : TestataTesto(pagina);
  }

  void TestataTesto(const std::string& pagina) {
    const reports::Fascia due{
        reports::Ripeti("$", kLarghezza - kDestra - 1) + " " + reports::Ripeti("$", kDestra),
        {},
        true};
    const reports::DatiDitta& ditta = rapporto_.Ditta();
    rapporto_.Riga(due, {ditta.ragSoc1_2, "Anno/pag. " + pagina});
    rapporto_.Titolo("", ditta.indirizzoLocalita);
    rapporto_.Titolo("", reports::CodiciDitta(ditta));
    rapporto_.Riga(
        due, {"REGISTRO IVA UNICO  " + dati_.periodo.testo + " " +
                  std::to_string(dati_.periodo.anno) + (sezione_.empty() ? "" : "  -  " + sezione_),
              dati_.definitiva ? "" : "stampa di prova"});
    rapporto_.Rigo("=");
    if (!conColonne_) return;
    rapporto_.Carta().Riga(kColonne);
    rapporto_.Rigo("-");
  }

  void TestataModello(const std::string& pagina) {
    rapporto_.TestataDitta(dati_.primaPagina + rapporto_.Carta().NumeroPagina() - 1);
    rapporto_.Titolo("AnnoPag", "Anno/pag. " + pagina);
    rapporto_.Titolo("TITOLO", "REGISTRO IVA UNICO");
    rapporto_.Titolo("PERIODO", dati_.periodo.testo + " " + std::to_string(dati_.periodo.anno));
    rapporto_.Titolo("DescrPagina", sezione_);
    if (!dati_.definitiva) rapporto_.Titolo("PROVA", "stampa di prova");
  }

  // --- Rows --------------------------------------------------------------------------------------

  /// False when the user cancelled.
  bool Registro(const TotaleRegistro& totale) {
    const IntervalloRegistro& intervallo = totale.intervallo;
    if (intervallo.Vuoto() || (intervallo.daIncassi && totale.codici.empty())) return true;
    sezione_ = opzioni_.soloTotali ? "Totali dei registri"
                                   : "Registro " + intervallo.riva + " " + intervallo.descrizione;
    progressivo_ = {};
    if (!opzioni_.soloTotali) {
      rapporto_.Carta().NuovaPagina();
      if (!Scorri(totale)) return false;
      if (opzioni_.saltoCartaTotaliIva) rapporto_.Carta().NuovaPagina();
    }
    if (!totale.quote.empty()) PaginaVentilazione(totale);
    Totali(totale);
    return true;
  }

  bool Scorri(const TotaleRegistro& totale) {
    const IntervalloRegistro& intervallo = totale.intervallo;
    const bool incassate = intervallo.daIncassi;
    // The stored queries let the engine find protocols and collections by their index.
    const char* articoli =
        incassate ? "ZarticoliSospese AS Articoli" : "ZarticoliProtocollati AS Articoli";
    const std::string condizione =
        incassate ? CondizioneIncassati(ambiente_, intervallo.tipo, dati_.periodo)
                  : CondizioneIntervallo(intervallo, dati_.periodo.anno, "Articoli.");
    // An order by register as well would have the engine sort what the index gives in order.
    const std::string ordine =
        incassate ? " ORDER BY Articoli.Anno, Articoli.Riva, Articoli.NProt, Movimenti.Posi"
                  : " ORDER BY Articoli.NProt, Movimenti.Posi";
    rapporto_.Riporta(reports::Riporto{totale_, [this] { return progressivo_.Celle(); }, true});
    std::vector<RigaRegistro> righe;
    Rs rs = ambiente_.ArchivioDi("tessarc").Recordset(kColonneLette + std::string(articoli) +
                                                      kGiunzione + condizione +
                                                      " AND Movimenti.TIPORIGA=3" + ordine);
    for (; !rs.Eof() && !rapporto_.Interrotta(); rs.MoveNext()) {
      const bool prima = righe.empty() || righe.front().numDoc != rs.Fields(1).Intero() ||
                         righe.front().anno != rs.Fields(2).Intero();
      if (prima) {
        Articolo(righe, incassate);
        if (!rapporto_.Passo()) return false;
      }
      righe.push_back(prima ? LeggiTesta(rs) : righe.front());
      LeggiImporti(rs, righe.back());
    }
    Articolo(righe, incassate);
    Progressivi("totale del registro", progressivo_);
    rapporto_.Riporta({});
    return !rapporto_.Interrotta();
  }

  /// A registration with all its lines, which stay together; takes its rows.
  void Articolo(std::vector<RigaRegistro>& righe, bool incassate) {
    if (righe.empty()) return;
    const std::vector<std::string> seguito = Seguito(righe.front(), incassate);
    const std::size_t quante = righe.size() + seguito.size();
    rapporto_.Spazio(static_cast<int>(std::min(quante, kInsieme)));
    for (std::size_t i = 0; i < righe.size(); ++i) {
      // What names the party isn't left alone on the next page.
      if (i + 1 == righe.size()) rapporto_.Spazio(static_cast<int>(1 + seguito.size()));
      Stendi(righe[i], i == 0);
    }
    for (const std::string& riga : seguito) RigaSeguito(riga);
    righe.clear();
  }

  /// The beginning of a party's name that the first line has room for.
  [[nodiscard]] std::string InizioNome(const std::string& intero) const {
    return rapporto_.InCampo("R_DESCRIZIONE", intero, kNome).front();
  }

  void Stendi(const RigaRegistro& riga, bool prima) {
    rapporto_.Spazio(1);
    std::vector<Valore> valori(5);
    if (prima) {
      valori = {riga.dt, riga.nProt, InizioNome(ParteDi(riga.cfp, riga.conto).nome), riga.nFat,
                riga.dtFat};
    }
    valori.emplace_back(DescrizioneIva(riga.codIva));
    rapporto_.Riga(riga_, riga.importi.Dopo(std::move(valori)),
                   AllaRegistrazione(riga.anno, riga.numDoc));
    progressivo_ += riga.importi;
  }

  [[nodiscard]] std::vector<std::string> InSeguito(const std::string& testo) const {
    return rapporto_.InCampo("R_SEGUITO", testo, kLarghezza - kRientro);
  }

  /// Behind the last line where it fits: a tax number is never broken.
  void AggiungiIntero(std::vector<std::string>& righe, const char* segno,
                      const std::string& testo) const {
    if (testo.empty()) return;
    if (!righe.empty()) {
      const std::string insieme = Accosta({righe.back(), testo}, segno);
      if (InSeguito(insieme).size() == 1) {
        righe.back() = insieme;
        return;
      }
    }
    righe.push_back(testo);
  }

  /// What follows the amounts of a registration: all that had no room beside them, and the address,
  /// on as many lines as they take.
  std::vector<std::string> Seguito(const RigaRegistro& testa, bool incassata) {
    const std::string intero = ParteDi(testa.cfp, testa.conto).nome;
    const std::size_t inizio = std::min(intero.size(), InizioNome(intero).size());
    std::vector<std::string> pezzi{
        std::string(Rifila(std::string_view(intero).substr(inizio))), {}, {}};
    if (rapporto_.InCampo("R_NFAT", testa.nFat, kNumero).size() > 1)
      pezzi[1] = "documento n. " + testa.nFat;
    if (opzioni_.stIndirizzo) pezzi[2] = ParteDi(testa.cfp, testa.conto).indirizzo;
    std::vector<std::string> righe;
    if (const std::string seguito = Accosta(pezzi, " - "); !seguito.empty()) {
      righe = InSeguito(seguito);
    }
    if (opzioni_.stIndirizzo) {
      AggiungiIntero(righe, pezzi[2].empty() ? " - " : " ", ParteDi(testa.cfp, testa.conto).codice);
    }
    if (incassata) {
      righe.push_back("Fatt.con IVA ad esigibilità differita  PAGATA IL " +
                      testa.dtIncasso.Testo());
    } else if (testa.ep) {
      righe.emplace_back("    ---- IVA ad esigibilità differita ----");
    }
    return righe;
  }

  const Parte& ParteDi(const std::string& cfp, const std::string& conto) {
    std::string chiave = cfp;
    chiave.append("\x1f").append(conto);
    const auto nota = parti_.find(chiave);
    if (nota != parti_.end()) return nota->second;
    if (parti_.size() >= kMassimoParti) parti_.clear();
    Parte parte;
    reports::AccodaPulito(parte.nome, ledger::NomeConto(ambiente_, cfp, conto));
    if (opzioni_.stIndirizzo) LeggiIndirizzo(cfp, conto, parte);
    return parti_.emplace(std::move(chiave), std::move(parte)).first->second;
  }

  /// Customers and suppliers have one; the cash account of receipts has none.
  void LeggiIndirizzo(const std::string& cfp, const std::string& conto, Parte& parte) {
    const bool cliente = UgualeTesto(cfp, "C");
    if (!cliente && !UgualeTesto(cfp, "F")) return;
    Rs rs = ambiente_.ArchivioDi("tessarc").Recordset(
        std::string("SELECT ragsoc2, indirizzo, cap, localita, Prov, piva, CodFisc "
                    "FROM ") +
        (cliente ? "Clienti" : "Fornitori") + " WHERE " + sql::Criterio("Cod", "=", conto));
    if (rs.Eof()) return;
    if (const std::string piva = rs.Fields(5).Testo(); !piva.empty()) {
      parte.codice = "Partita IVA " + piva;
    } else if (const std::string fiscale = rs.Fields(6).Testo(); !fiscale.empty()) {
      parte.codice = "C.F. " + fiscale;
    }
    const std::string seconda = NzStr(ambiente_.Cerca(
        "tessarc", "ContiClientiFornitori", {{"Cod", conto}, {"CFP", cfp}}, "descrizione2"));
    parte.indirizzo = Accosta({seconda, rs.Fields(1).Testo(), rs.Fields(2).Testo(),
                               rs.Fields(3).Testo(), rs.Fields(4).Testo()});
  }

  const std::string& DescrizioneIva(const std::string& cod) {
    const auto nota = codici_.find(cod);
    if (nota != codici_.end()) return nota->second;
    std::string descrizione =
        NzStr(ambiente_.Cerca("tessarc", "CodiciIva", {{"Cod", cod}}, "Descrizione"));
    // A description that its place would cut comes behind its code, or gives place to it.
    if (rapporto_.InCampo("R_DESCRIVA", descrizione, kIva).size() > 1)
      descrizione = rapporto_.Grafico() ? cod + " " + descrizione : cod;
    if (descrizione.empty()) descrizione = cod;
    return codici_.emplace(cod, std::move(descrizione)).first->second;
  }

  // --- Lines of text -----------------------------------------------------------------------------

  /// A further line of a registration.
  void RigaSeguito(const std::string& testo) {
    static const reports::Fascia kSeguito{
        reports::Ripeti(" ", kRientro) + reports::Ripeti("$", kLarghezza - kRientro),
        {"R_SEGUITO"}};
    rapporto_.Spazio(1);
    rapporto_.Riga(kSeguito, {testo});
  }

  void Titoletto(const std::string& testo) { rapporto_.Scritta("R_TITOLO", testo, true); }

  void Scrittura(const std::string& testo) {
    rapporto_.Spazio(1);
    rapporto_.Scritta("R_SCRITTA", testo);
  }

  // --- Totals ------------------------------------------------------------------------------------

  void Progressivi(const std::string& testo, const ImportiRiga& importi) {
    rapporto_.Spazio(2);
    rapporto_.Filo("-");
    rapporto_.Riga(totale_, importi.Dopo({testo}));
  }

  void Totali(const TotaleRegistro& totale) {
    // The title with its first code and the total.
    rapporto_.Spazio(5);
    Scrittura("");
    Titoletto("Totali iva registro " + totale.intervallo.riva + " " +
              totale.intervallo.descrizione);
    TotaliCodici("TOTALI per codice IVA", totale.codici);
    if (!totale.differiti.empty()) {
      TotaliCodici("TOTALI per cod.IVA esigibilità differita", totale.differiti);
    }
  }

  void TotaliCodici(const std::string& titolo, const std::vector<TotaleCodice>& codici) {
    rapporto_.Spazio(3);
    Titoletto(titolo);
    ImportiRiga somma;
    for (const TotaleCodice& codice : codici) {
      rapporto_.Spazio(1);
      const ImportiRiga importi{codice.imponibile, codice.iva, codice.ivaInd};
      std::string testo = "codice " + codice.codIva;
      if (!rapporto_.Grafico()) {
        testo = codice.codIva +
                reports::Ripeti(" ", kCodice - std::min(codice.codIva.size(), kCodice)) + " " +
                codice.descrizione;
      }
      std::vector<Valore> valori = importi.Dopo({testo});
      if (rapporto_.Grafico()) valori.emplace_back(codice.descrizione);
      rapporto_.Riga(rigaCodice_, std::move(valori));
      somma += importi;
    }
    Progressivi(kTotale, somma);
  }

  // --- Ventilation -------------------------------------------------------------------------------

  void RegistroAcquisti(const std::string& riva, std::int64_t aaNProt) {
    if (riva.empty()) return;
    const std::string descrizione =
        NzStr(ambiente_.Cerca("tessarc", "RegistriIva", {{"Cod", riva}}, "Descrizione"));
    Scrittura("in base agli acquisti annotati sul registro " + riva + " " + descrizione);
    Scrittura("fino al n. prot. " + std::to_string(aaNProt));
  }

  void PaginaVentilazione(const TotaleRegistro& totale) {
    reports::Stampa& carta = rapporto_.Carta();
    carta.NuovaPagina();
    Scrittura("VENTILAZIONE DEI CORRISPETTIVI");
    RegistroAcquisti(opzioni_.ventilazione.riva, opzioni_.ventilazione.aaNProt);
    RegistroAcquisti(opzioni_.ventilazione.riva1, opzioni_.ventilazione.aaNProt1);
    carta.Campo(1, totale.acquistiVentilazione);
    Scrittura(carta.Formato(kRigaAcquisti));
    Scrittura("Calcolo coefficienti di ripartizione");
    Scrittura("     %IVA       importo   % ripart.");
    for (const QuotaVentilazione& quota : totale.quote) {
      carta.Campo(1, quota.codIva);
      // Without decimals it doesn't have: "22", "4,5".
      carta.Campo(2, ScriviImporto(quota.perc, 0));
      carta.Campo(3, quota.acquisti);
      const std::string quotaTesto = ScriviQuota(quota.quota);
      carta.Campo(4, reports::Ripeti(" ", kLargoQuota - std::min(quotaTesto.size(), kLargoQuota)) +
                         quotaTesto);
      Scrittura(carta.Formato(kRigaQuota));
    }
  }

  Ambiente& ambiente_;
  reports::Rapporto rapporto_;
  const DatiStampaRegistro& dati_;
  const OpzioniRegistroIva& opzioni_;
  reports::Fascia riga_;
  reports::Fascia rigaCodice_;
  reports::Fascia totale_;
  std::string sezione_;     ///< what the page is about
  bool conColonne_ = true;  ///< their captions stand under the heading
  ImportiRiga progressivo_;
  std::unordered_map<std::string, Parte> parti_;
  std::unordered_map<std::string, std::string> codici_;
};

}  // namespace

std::optional<int> StampaRegistroIva(Ambiente& ambiente, reports::FabbricaUscite& uscite,
                                     const DatiStampaRegistro& dati,
                                     const OpzioniRegistroIva& opzioni) {
  return TabulatoRegistroIva(ambiente, uscite, dati, opzioni).Esegui();
}

}  // namespace fenalto::vat
