#include <algorithm>

#include "core/sql/Criterio.h"
#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"
#include "ledger/accounts/SaldoConto.h"
#include "ledger/journal/GiornaleInterno.h"

namespace fenalto::ledger {

namespace {

/// Registrations between two signs of life.
constexpr std::int64_t kOgni = 200;

constexpr const char* kArticolo = "$$$$$$$$$$$$$                  $$$$$$$$ $$$$$$$$$$$$$$$$$$$$$";
/// The account's code, before the two texts and the amount.
constexpr const char* kDare =
    "         $$$$$$$$ "
    "§§§§§§§§§§§§§§§§§§§§§§§§§§§§§§ $$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$ çççççççççççççç"
    "ç";
constexpr const char* kAvere =
    "         $$$$$$$$ "
    "§§§§§§§§§§§§§§§§§§§§§§§§§§§§§§ $$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$                 "
    "ççççççççççççççç";
constexpr const char* kSeguito =
    "                                                 "
    "$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$";
constexpr std::size_t kTestoLargo = 46;
constexpr std::size_t kLarghezza = 128;

constexpr const char* kCompattaDare =
    "$$$$$$$$ $$$$$$ "
    "$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$"
    "$$$$$$$$$$$ ççççççççççççççç         ";
constexpr const char* kCompattaAvere =
    "$$$$$$$$ $$$$$$ "
    "$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$"
    "$$$$$$$$$$$          ççççççççççççççç";
constexpr std::size_t kCodiceCompatto = 6;
constexpr std::size_t kLarghezzaCompatta = 132;

/// Characters of a piece of description in the graphic form, where capitals take half as much
/// again.
constexpr std::size_t kTestoModello = 54;
constexpr std::size_t kTestoModelloMaiuscolo = 40;

std::size_t TestoDelModello(const std::string& testo) {
  const auto maiuscole = std::ranges::count_if(testo, [](char c) { return c >= 'A' && c <= 'Z'; });
  return static_cast<std::size_t>(maiuscole) * 3 > testo.size() ? kTestoModelloMaiuscolo
                                                                : kTestoModello;
}

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

}  // namespace

std::vector<std::string> InRighe(const std::string& testo, std::size_t larghezza) {
  std::vector<std::string> righe;
  std::string_view resto = Rifila(testo);
  while (resto.size() > larghezza && LunghezzaTesto(resto) > larghezza) {
    const std::string pezzo = Mid(resto, 1, larghezza + 1);
    std::size_t fine = pezzo.find_last_of(" \t\r\n");
    if (fine == std::string::npos || fine == 0) fine = Mid(resto, 1, larghezza).size();
    righe.emplace_back(Rifila(resto.substr(0, fine)));
    resto = Rifila(resto.substr(fine));
  }
  if (righe.empty() || !resto.empty()) righe.emplace_back(resto);
  return righe;
}

TabulatoGiornale::TabulatoGiornale(Ambiente& ambiente, reports::FabbricaUscite& uscite,
                                   const SceltaGiornale& scelta)
    : ambiente_(ambiente),
      scelta_(scelta),
      uscite_(uscite),
      stampa_(ambiente, uscite_),
      ditta_(reports::LeggiDatiDitta(ambiente)),
      larghezza_(scelta.stampaCompatta ? kLarghezzaCompatta : kLarghezza),
      rigaDare_(
          reports::PictureImporto(scelta.stampaCompatta ? kCompattaDare : kDare, ambiente.Euro())),
      rigaAvere_(reports::PictureImporto(scelta.stampaCompatta ? kCompattaAvere : kAvere,
                                         ambiente.Euro())),
      rigaTotali_(reports::PictureImporto(
          scelta.stampaCompatta ? reports::Ripeti("$", 98) + " ççççççççççççççç   ççççççççççççççç"
                                : reports::Ripeti("$", 95) + " ççççççççççççççç ççççççççççççççç",
          ambiente.Euro())) {}

bool TabulatoGiornale::Esegui() {
  const reports::Cornice cornice{
      "libro giornale",
      "Libro giornale dal " + scelta_.daDt.Testo() + " al " + scelta_.aaDt.Testo(),
      "TiGio",
      larghezza_,
      scelta_.stGrafico,
      scelta_.xTar};
  const reports::ModoStampa modo = reports::ApriStampa(stampa_, ambiente_, cornice);
  if (modo == reports::ModoStampa::Fermata) return false;
  grafico_ = modo == reports::ModoStampa::Grafico;
  if (!grafico_ && uscite_.anteprima) {
    ambiente_.Dialogo().Messaggio(
        "la stampa su 'video' del giornale non è formattata e serve solo per controllo.");
  }
  stampa_.Intestazione([this] { Testata(); });
  if (!Scorri()) return false;
  Totali();
  return stampa_.Fine();
}

bool TabulatoGiornale::Scorri() {
  Archivio& archivio = ambiente_.ArchivioDi("tessarc");
  const std::int64_t totale = archivio
                                  .Singolo("SELECT Count(*) FROM Articoli WHERE " +
                                           CondizioneGiornale(scelta_, ambiente_.Anno()))
                                  .Intero();
  const auto avanzamento = ambiente_.Dialogo().Avvia("Libro giornale", totale);
  std::int64_t fatti = 0;
  std::int64_t numero = -1;
  Rs rs = archivio.Recordset(TestoRighe(scelta_, ambiente_.Anno()));
  for (; !rs.Eof() && !stampa_.Interrotta(); rs.MoveNext()) {
    RigaGiornale riga;
    riga.numDoc = rs.Fields(1).Intero();
    riga.prima = riga.numDoc != numero;
    if (riga.prima && ++fatti % kOgni == 0 && !avanzamento->Avanza(fatti)) return false;
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

void TabulatoGiornale::Riga(const RigaGiornale& riga) {
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
  if (grafico_) {
    RigaModello(riga, rinvio);
  } else if (scelta_.stampaCompatta) {
    RigaCompatta(riga, rinvio);
  } else {
    RigaTesto(riga, rinvio);
  }
}

void TabulatoGiornale::Conta(const RigaGiornale& riga) {
  dare_ += riga.dare;
  avere_ += riga.avere;
}

/// Article and protocol on one line.
std::string TabulatoGiornale::Riferimento(const RigaGiornale& riga) const {
  std::string testo;
  if (scelta_.stampaNArticolo) testo = "art. " + std::to_string(riga.numDoc);
  if (riga.nProt != 0) testo += "/prot " + std::to_string(riga.nProt);
  return testo;
}

void TabulatoGiornale::RigaTesto(const RigaGiornale& riga, const Rinvio& rinvio) {
  // One line is kept for the amounts carried forward.
  if (stampa_.RigheLibere() < (riga.prima ? 3 : 2)) FinePagina();
  if (riga.prima) {
    if (scelta_.stampaNArticolo) {
      stampa_.Campo(1, riga.numDoc);
      stampa_.Campo(1, stampa_.Formato("art. #####,"));
    }
    stampa_.Campo(2, riga.dt);
    if (riga.nProt != 0) stampa_.Campo(3, "n.protocollo Iva " + std::to_string(riga.nProt));
    stampa_.Riga(kArticolo, rinvio);
  }
  const std::vector<std::string> pezzi =
      InRighe(Unisci(Causale(riga.causale), " ", riga.descrizione), kTestoLargo);
  const bool avere = !riga.avere.Zero();
  stampa_.Campo(1, riga.conto);
  stampa_.Campo(2, Conto(riga.cfp, riga.conto));
  stampa_.Campo(3, pezzi.front());
  stampa_.Campo(4, avere ? riga.avere : riga.dare);
  stampa_.Riga(avere ? rigaAvere_ : rigaDare_, rinvio);
  Conta(riga);
  Seguiti(pezzi, rinvio);
}

void TabulatoGiornale::Seguiti(const std::vector<std::string>& pezzi, const Rinvio& rinvio) {
  for (std::size_t i = 1; i < pezzi.size(); ++i) {
    if (stampa_.RigheLibere() < 2) FinePagina();
    stampa_.Campo(1, pezzi[i]);
    stampa_.Riga(kSeguito, rinvio);
  }
}

void TabulatoGiornale::RigaCompatta(const RigaGiornale& riga, const Rinvio& rinvio) {
  if (stampa_.RigheLibere() < 2) FinePagina();
  const bool avere = !riga.avere.Zero();
  // A code that its place would cut goes before the description, so that none is half told.
  const bool cabe = LunghezzaTesto(riga.conto) <= kCodiceCompatto;
  std::string testo = riga.prima ? Riferimento(riga) : "";
  if (!cabe) testo = Unisci(testo, " ", riga.conto);
  testo = Unisci(testo, " ", Conto(riga.cfp, riga.conto));
  testo = Unisci(testo, " / ", Causale(riga.causale));
  testo = Unisci(testo, " / ", riga.descrizione);
  if (riga.prima) stampa_.Campo(1, riga.dt);
  if (cabe) stampa_.Campo(2, riga.conto);
  stampa_.Campo(3, testo);
  stampa_.Campo(4, avere ? riga.avere : riga.dare);
  stampa_.Riga(avere ? rigaAvere_ : rigaDare_, rinvio);
  Conta(riga);
}

void TabulatoGiornale::RigaModello(const RigaGiornale& riga, const Rinvio& rinvio) {
  if (stampa_.RigheLibere() < 1) FinePagina();
  std::vector<std::string> pezzi = {
      Unisci(Causale(riga.causale), scelta_.stampaCompatta ? " / " : " ", riga.descrizione)};
  if (!scelta_.stampaCompatta) pezzi = InRighe(pezzi.front(), TestoDelModello(pezzi.front()));
  double y = stampa_.YCorrente();
  if (riga.prima) {
    stampa_.CampoModello("R_Dt", riga.dt, y, rinvio);
    stampa_.CampoModello("R_nart", Riferimento(riga), y, rinvio);
  }
  stampa_.CampoModello("R_conto", riga.conto, y, rinvio);
  stampa_.CampoModello("R_DESCRCONTO", Conto(riga.cfp, riga.conto), y, rinvio);
  const bool avere = !riga.avere.Zero();
  stampa_.CampoModello(avere ? "R_AVERE" : "R_DARE", PerModello(avere ? riga.avere : riga.dare), y,
                       rinvio);
  Conta(riga);
  for (std::size_t i = 0; i < pezzi.size(); ++i) {
    if (i > 0) {
      if (stampa_.RigheLibere() < 1) FinePagina();
      y = stampa_.YCorrente();
    }
    stampa_.CampoModello("R_DESCRIZIONE", pezzi[i], y, rinvio);
    stampa_.AvanzaRiga();
  }
}

const std::string& TabulatoGiornale::Conto(const std::string& cfp, const std::string& conto) {
  const auto chiave = std::pair(cfp, conto);
  auto noto = conti_.find(chiave);
  if (noto == conti_.end()) {
    const std::string descrizione = NzStr(ambiente_.Cerca(
        "tessarc", "ContiClientiFornitori", {{"Cod", conto}, {"CFP", cfp}}, "Descrizione"));
    noto = conti_.emplace(chiave, descrizione).first;
  }
  return noto->second;
}

const std::string& TabulatoGiornale::Causale(const std::string& cod) {
  auto nota = causali_.find(cod);
  if (nota == causali_.end()) {
    nota = causali_
               .emplace(cod,
                        NzStr(ambiente_.Cerca("tessarc", "Causali", {{"Cod", cod}}, "DESCRIZIONE")))
               .first;
  }
  return nota->second;
}

Valore TabulatoGiornale::PerModello(Importo importo) const {
  if (ambiente_.Euro()) return importo;
  return ScriviImportoFisso(importo, 0);
}

}  // namespace fenalto::ledger
