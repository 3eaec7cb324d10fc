#include "demo/MagazzinoDemo.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "demo/AnagraficheDemo.h"
#include "demo/DatiDemo.h"
#include "demo/ProdottiDemo.h"
#include "demo/ScrittoreArchivio.h"
#include "documents/parties/ArchiviParti.h"
#include "documents/types/TipiDocumento.h"
#include "warehouse/products/ArchiviMagazzino.h"
#include "warehouse/products/ArchivioProdotti.h"

namespace fenalto::demo {
namespace {

using documents::DocumentoDaScrivere;

constexpr const char* kInterno = "0900";  // the party of movements within the firm
constexpr int kPrincipale = 0;
constexpr int kDeposito = 1;
constexpr std::array<const char*, 2> kCodiciMagazzino{"01", "02"};

Importo Centesimi(std::int64_t quanti) {
  return Importo::DaDecimillesimi(quanti * (Importo::kScala / 100));
}

Importo Quantita(int quante) {
  return Importo::DaUnita(quante);
}

/// A price as it is written on a list: to ten cents.
Importo DiListino(Importo costo) {
  constexpr std::int64_t kRicarico = 162;
  const std::int64_t centesimi = costo.Decimillesimi() * kRicarico / 10'000;
  return Centesimi(centesimi / 10 * 10 + 10);
}

std::string CodiceDi(const FamigliaDemo& famiglia, std::string_view misura) {
  std::string codice = std::string(famiglia.codice) + "-";
  for (const char lettera : misura) {
    if (lettera != '.' && lettera != '/') codice += lettera;
  }
  std::ranges::transform(codice, codice.begin(), [](unsigned char c) {
    return static_cast<char>(c >= 'a' && c <= 'z' && c != 'x' ? c - 'a' + 'A' : c);
  });
  return codice;
}

std::string DescrizioneDi(const FamigliaDemo& famiglia, std::string_view misura) {
  std::string testo(famiglia.descrizione);
  std::string scritta(misura);
  std::ranges::replace(scritta, '.', scritta.find('/') == std::string::npos ? ',' : ' ');
  return testo.replace(testo.find(kSegnoMisura), 1, scritta);
}

}  // namespace

// --- Products
// --------------------------------------------------------------------------------------

void MagazzinoDemo::Prodotti() {
  const auto archivi = warehouse::ArchiviMagazzino();
  ScrittoreArchivio categorie(ambiente_, dialoghi_, archivi, "CategorieMag");
  for (const CategoriaDemo& c : kCategorieDemo) {
    categorie.Scrivi({{"Cod", c.cod}, {"Descrizione", c.descrizione}});
  }
  ScrittoreArchivio(ambiente_, dialoghi_, documents::ArchiviParti(), "Fornitori")
      .Scrivi(
          {{"Cod", kInterno}, {"ragsoc1", "Movimenti interni di magazzino"}, {"Conto", "400.001"}});
  ScrittoreArchivio tipi(ambiente_, dialoghi_, documents::ArchivioTipiDocumento());
  for (const char* tipo : {"20", "21", "30", "31", "40", "41"}) {
    tipi.Cambia(tipo, {{"CliFor", kInterno}});
  }
  const auto parte =
      std::make_shared<warehouse::ParteProdotto>(ambiente_, warehouse::DalMagazzino{});
  ScrittoreArchivio prodotti(ambiente_, dialoghi_, warehouse::ArchivioProdotti(parte));
  Archivio& tessarc = ambiente_.ArchivioDi("tessarc");
  for (const FamigliaDemo& famiglia : kFamiglieDemo) {
    for (std::size_t i = 0; i < famiglia.misure.size(); ++i) {
      Articolo uno;
      uno.cod = CodiceDi(famiglia, famiglia.misure[i]);
      uno.descrizione = DescrizioneDi(famiglia, famiglia.misure[i]);
      uno.um = famiglia.um;
      uno.fornitore = famiglia.fornitore;
      uno.scorta = famiglia.scorta;
      uno.costo = uno.costoBase =
          Centesimi(famiglia.costo + famiglia.passo * static_cast<std::int64_t>(i));
      uno.listino = DiListino(uno.costo);
      prodotti.Scrivi({{"Cod", uno.cod},
                       {"Descrizione", uno.descrizione},
                       {"um", uno.um},
                       {"CodIva", "22"},
                       {"Conto", "700.001"},
                       {"Prezzo", uno.listino},
                       {"CostoDigitato", uno.costo},
                       {"CategoriaMag", famiglia.categoria},
                       {"Scorta", Quantita(uno.scorta)},
                       {"QMinRiordino", Quantita(uno.scorta)}});
      tessarc.Inserisci("prodottiFor_r",
                        {{"Cod", uno.cod},
                         {"Posi", 100},
                         {"Fornitore", CodiceParteDemo(famiglia.fornitore)},
                         {"codprfor", std::string(famiglia.categoria) + uno.cod.substr(0, 2) +
                                          std::to_string(1'000 + articoli_.size() * 7)},
                         {"Descrizione", uno.descrizione},
                         {"Prezzo", uno.costo}});
      articoli_.push_back(std::move(uno));
    }
  }
}

// --- Documents
// -------------------------------------------------------------------------------------

const documents::TipoDocumento& MagazzinoDemo::Tipo(const std::string& codice) {
  if (tipi_.empty()) tipi_ = documents::LeggiTipi(ambiente_);
  return *std::ranges::find(tipi_, codice, &documents::TipoDocumento::cod);
}

DocumentoDaScrivere MagazzinoDemo::Nuovo(const char* tipo, Data giorno, const std::string& parte,
                                         int magazzino) {
  DocumentoDaScrivere nuovo;
  nuovo.tipo = Tipo(tipo);
  nuovo.anno = giorno.Anno();
  nuovo.dt = giorno;
  nuovo.cliFor = parte;
  nuovo.mag = kCodiciMagazzino[static_cast<std::size_t>(magazzino)];
  return nuovo;
}

void MagazzinoDemo::Riga(DocumentoDaScrivere& documento, Articolo& articolo, int quantita,
                         Importo prezzo) {
  const bool carico = documento.tipo.cs == "C";
  documents::RigaDocumento riga;
  riga.codiceRiga = articolo.cod;
  riga.descrizione = articolo.descrizione;
  riga.um = articolo.um;
  riga.quantita = Quantita(quantita);
  riga.prezzo = prezzo;
  if (documento.tipo.cfp == "F") {
    riga.quantitaA = riga.quantita;
    riga.prezzoA = prezzo;
  }
  if (documento.tipo.Bolla()) {
    riga.codIva = "22";
    riga.conto = "700.001";
  }
  riga.costo = articolo.costo;
  documento.righe.push_back(std::move(riga));
  const auto magazzino = documento.mag == kCodiciMagazzino[kPrincipale] ? kPrincipale : kDeposito;
  articolo.giacenza[static_cast<std::size_t>(magazzino)] += carico ? quantita : -quantita;
}

std::int64_t MagazzinoDemo::Scrivi(DocumentoDaScrivere documento) {
  return documento.righe.empty() ? 0 : documents::ScriviDocumento(ambiente_, std::move(documento));
}

void MagazzinoDemo::EsistenzaIniziale(int anno, bool primo) {
  const Data giorno = Data::DaGma(1, 1, anno).value();
  for (const int magazzino : {kPrincipale, kDeposito}) {
    DocumentoDaScrivere iniziale = Nuovo(documents::kEsistenzaIniziale, giorno, "", magazzino);
    if (!primo) iniziale.origine = documents::OrigineDocumento::TrasportoEsistenze;
    for (Articolo& articolo : articoli_) {
      int& qui = articolo.giacenza[static_cast<std::size_t>(magazzino)];
      int quante = std::exchange(qui, 0);
      if (primo) {
        const int altre =
            static_cast<int>(generatore_.Indice(static_cast<std::size_t>(articolo.scorta)));
        quante = magazzino == kPrincipale ? 2 * articolo.scorta + altre : altre % 4;
      }
      // The main warehouse keeps the cost of what is sold out.
      if (quante > 0 || magazzino == kPrincipale) Riga(iniziale, articolo, quante, articolo.costo);
    }
    Scrivi(std::move(iniziale));
  }
}

void MagazzinoDemo::Carico(Data giorno, std::size_t fornitore) {
  DocumentoDaScrivere carico = Nuovo("10", giorno, CodiceParteDemo(fornitore), kPrincipale);
  carico.dtDocCarico = giorno.PiuGiorni(-1);
  carico.numDocCarico = std::to_string(200 + 13 * ++carichi_) + "/" + std::to_string(giorno.Anno());
  for (Articolo& articolo : articoli_) {
    const int qui = articolo.giacenza[kPrincipale];
    const bool serve = qui < 2 * articolo.scorta || generatore_.Indice(8) == 0;
    if (articolo.fornitore != fornitore || !serve) continue;
    // What is bought grows a little dearer, and sometimes is had for less.
    const auto variazione = static_cast<std::int64_t>(generatore_.Indice(5)) + carichi_ / 12 - 1;
    articolo.costo = Centesimi(articolo.costoBase.Decimillesimi() * (100 + variazione) / 10'000);
    const int quante = std::max(articolo.scorta, 4 * articolo.scorta - qui);
    Riga(carico, articolo, quante, articolo.costo);
    carico.righe.back().costo = articolo.costo;
  }
  Scrivi(std::move(carico));
}

void MagazzinoDemo::Consegna(Data giorno, bool daFatturare) {
  const std::size_t cliente = 1 + generatore_.Indice(kClientiDemo.size());
  const int magazzino = generatore_.Indice(6) == 0 ? kDeposito : kPrincipale;
  DocumentoDaScrivere consegna =
      Nuovo(daFatturare ? "01" : "02", giorno, CodiceParteDemo(cliente), magazzino);
  consegna.altriCampi = {{"Pagamento", std::string(kClientiDemo[cliente - 1].pagamento)}};
  const std::size_t righe = daFatturare ? 3 + generatore_.Indice(4) : 1;
  for (std::size_t tentativo = 0; tentativo < 4 * righe && consegna.righe.size() < righe;
       ++tentativo) {
    const std::size_t quale = generatore_.Indice(articoli_.size());
    Articolo& articolo = articoli_[quale];
    const int qui = articolo.giacenza[static_cast<std::size_t>(magazzino)];
    const bool gia = std::ranges::any_of(
        consegna.righe, [&](const auto& riga) { return riga.codiceRiga == articolo.cod; });
    if (qui < 2 || gia) continue;
    const int massime = daFatturare ? std::min(qui / 2, articolo.scorta) : 1;
    const int quante = 1 + static_cast<int>(generatore_.Indice(static_cast<std::size_t>(massime)));
    Riga(consegna, articolo, quante, articolo.listino);
    if (cliente % 3 == 0) consegna.righe.back().sc1 = Importo::DaUnita(5);
    consegnati_.push_back({quale, cliente});
  }
  Scrivi(std::move(consegna));
}

void MagazzinoDemo::ResoDaCliente(Data giorno) {
  if (consegnati_.empty()) return;
  const Consegnato& reso =
      consegnati_[consegnati_.size() - 1 -
                  generatore_.Indice(std::min<std::size_t>(10, consegnati_.size()))];
  DocumentoDaScrivere documento = Nuovo("12", giorno, CodiceParteDemo(reso.cliente), kPrincipale);
  Articolo& articolo = articoli_[reso.articolo];
  Riga(documento, articolo, 1, articolo.listino);
  Scrivi(std::move(documento));
}

void MagazzinoDemo::ResoAFornitore(Data giorno) {
  Articolo& articolo = articoli_[generatore_.Indice(articoli_.size())];
  if (articolo.giacenza[kPrincipale] < 3) return;
  DocumentoDaScrivere documento =
      Nuovo("11", giorno, CodiceParteDemo(articolo.fornitore), kPrincipale);
  Riga(documento, articolo, 2, articolo.costo);
  Scrivi(std::move(documento));
}

void MagazzinoDemo::Trasferimento(Data giorno) {
  DocumentoDaScrivere scarico = Nuovo("20", giorno, kInterno, kPrincipale);
  DocumentoDaScrivere carico = Nuovo("21", giorno, kInterno, kDeposito);
  for (int riga = 0; riga < 6; ++riga) {
    Articolo& articolo = articoli_[generatore_.Indice(articoli_.size())];
    const bool gia = std::ranges::any_of(
        scarico.righe, [&](const auto& una) { return una.codiceRiga == articolo.cod; });
    const int quante = articolo.giacenza[kPrincipale] / 4;
    if (quante == 0 || gia) continue;
    Riga(scarico, articolo, quante, articolo.costo);
    Riga(carico, articolo, quante, articolo.costo);
  }
  const std::int64_t numero = Scrivi(std::move(scarico));
  carico.origine = documents::OrigineDocumento::Trasferimento;
  carico.tipoDocOrigine = "20";
  carico.annoOrigine = giorno.Anno();
  carico.numDocOrigine = numero;
  carico.numDocCarico = "20/" + std::to_string(numero);
  carico.dtDocCarico = giorno;
  Scrivi(std::move(carico));
}

void MagazzinoDemo::Rettifiche(Data giorno) {
  DocumentoDaScrivere piu = Nuovo("40", giorno, kInterno, kPrincipale);
  DocumentoDaScrivere meno = Nuovo("41", giorno, kInterno, kPrincipale);
  for (int riga = 0; riga < 8; ++riga) {
    const auto quale = static_cast<std::size_t>(riga) * 19 + generatore_.Indice(19);
    Articolo& articolo = articoli_[quale % articoli_.size()];
    if (riga % 2 == 0) {
      Riga(piu, articolo, 1, articolo.costo);
    } else if (articolo.giacenza[kPrincipale] > 0) {
      Riga(meno, articolo, 1, articolo.costo);
    }
  }
  Scrivi(std::move(piu));
  Scrivi(std::move(meno));
}

/// What a hurried clerk does: the goods went out before the load was written.
void MagazzinoDemo::ConsegnePrimaDelCarico() {
  DocumentoDaScrivere consegna = Nuovo("01", oggi_, CodiceParteDemo(9), kPrincipale);
  consegna.altriCampi = {{"Pagamento", std::string(kClientiDemo[8].pagamento)},
                         {"Varie1", "Merce consegnata prima di registrarne il carico"}};
  for (const std::size_t quale : {std::size_t{12}, std::size_t{66}, std::size_t{121}}) {
    Articolo& articolo = articoli_[quale];
    const int ovunque = articolo.giacenza[kPrincipale] + articolo.giacenza[kDeposito];
    Riga(consegna, articolo, ovunque + 3, articolo.listino);
  }
  Scrivi(std::move(consegna));
}

void MagazzinoDemo::Giorno(Data giorno, int anno, int mese) {
  constexpr std::array<std::size_t, 9> kForniscono{12, 7, 6, 8, 9, 11, 1, 10, 16};
  const int numero = giorno.Giorno();
  if (numero == 4 || numero == 9 || numero == 14 || numero == 19) {
    const auto turno = static_cast<std::size_t>(anno) * 48 + static_cast<std::size_t>(mese) * 4 +
                       static_cast<std::size_t>(numero) / 5;
    Carico(giorno, kForniscono[turno % kForniscono.size()]);
  }
  if (numero % 3 == 0) Consegna(giorno, true);
  if (numero == 7 && mese % 3 == 2) Consegna(giorno, false);
  if (numero == 11 && mese % 2 == 1) ResoDaCliente(giorno);
  if (numero == 22 && mese % 3 == 0) ResoAFornitore(giorno);
  if (numero == 16) Trasferimento(giorno);
  if (numero == 31 && mese == 12) Rettifiche(giorno);
}

void MagazzinoDemo::Anno(int anno, bool primo) {
  EsistenzaIniziale(anno, primo);
  for (Data giorno = Data::DaGma(2, 1, anno).value(); giorno <= oggi_ && giorno.Anno() == anno;
       giorno = giorno.PiuGiorni(1)) {
    constexpr int kDomenica = 7;
    if (giorno.GiornoSettimana() != kDomenica) Giorno(giorno, anno, giorno.Mese());
  }
}

void MagazzinoDemo::Documenti(int primo, int secondo) {
  Anno(primo, true);
  Anno(secondo, false);
  ConsegnePrimaDelCarico();
}

}  // namespace fenalto::demo
