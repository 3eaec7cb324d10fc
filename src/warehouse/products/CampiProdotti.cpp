// Fields of a product, page by page.
#include "core/values/Testo.h"
#include "warehouse/products/FileProdotto.h"
#include "warehouse/products/ProdottiInterno.h"

namespace fenalto::warehouse {
namespace {

using records::CampoForma;
using records::DiCodice;
using records::Digitato;
using records::GenereCampo;
using records::Mostrato;

constexpr int kPercento = 7;
constexpr int kPrezzo = 12;
constexpr int kTesto = 80;
constexpr int kMisura = 5;
constexpr int kGruppo = 8;
constexpr int kNomeFile = kCaratteriFile;

constexpr const char* kPrezziVendita = "FramePrezzi";
constexpr const char* kCampagna = "FrameCampagna";
constexpr const char* kDescrizioni = "FrameDescrizioni";
constexpr const char* kClassi = "FrameClassi";
constexpr const char* kScorte = "FrameScorte";
constexpr const char* kAcquisto = "FrameAcquisto";
constexpr const char* kCosto = "FrameCosto";
constexpr const char* kFile = "FrameFile";

class DescrittoreProdotto {
 public:
  DescrittoreProdotto(archives::DescrizioneArchivio& archivio, const DalMagazzino& magazzino)
      : archivio_(archivio), dP_(magazzino.decimaliPrezzo), dQ_(magazzino.decimaliQuantita) {}

  void Anagrafica();
  void AltriDati();
  void Fornitori();
  void File();

 private:
  void Pagina(const char* nome, const char* titolo) {
    pagina_ = nome;
    archivio_.pagine.push_back({nome, titolo});
  }
  void Riquadro(const char* nome, const char* titolo, bool largo = true) {
    archivio_.riquadri.push_back({nome, titolo, pagina_, largo});
  }
  void Campi(std::initializer_list<CampoForma> campi) {
    archivio_.campi.insert(archivio_.campi.end(), campi);
  }
  [[nodiscard]] CampoForma Prezzo(const char* nome, const char* didascalia,
                                  const char* riquadro) const {
    return Digitato(nome, didascalia, kPrezzo).Decimali(dP_).In(riquadro);
  }
  [[nodiscard]] static CampoForma Sconto(const char* nome, const char* riquadro) {
    return Digitato(nome, "sconto %", kPercento).In(riquadro).Accanto();
  }
  [[nodiscard]] CampoForma Quantita(const char* nome, const char* didascalia,
                                    const char* riquadro) const {
    return Digitato(nome, didascalia, kPrezzo).Decimali(dQ_).In(riquadro);
  }

  archives::DescrizioneArchivio& archivio_;
  int dP_;
  int dQ_;
  std::string pagina_;
};

void DescrittoreProdotto::Anagrafica() {
  Campi({Digitato("Cod", "Codice", archivio_.caratteriCodice),
         Digitato("Barcode", "codice a barre", 20).Accanto(),
         Digitato("FuoriUso", "fuori uso")
             .Accanto()
             .Aiuto("non si propone più: si trova scrivendone il codice intero"),
         Digitato("Descrizione", "Descrizione")
             .Di(GenereCampo::Note)
             .Aiuto("Tab passa al campo dopo; stampe ed elenchi brevi mostrano la prima riga"),
         Digitato("um", "Unità di misura", kMisura).Elencato(),
         DiCodice("CodIva", "Codice IVA", "codiciIva", kGruppo).Accanto(),
         DiCodice("Conto", "Conto", "contropartite", 10)});
  Riquadro(kPrezziVendita, "Prezzi di vendita");
  Campi({Prezzo("Prezzo", "Prezzo 1", kPrezziVendita).Elencato(), Sconto("Sc", kPrezziVendita),
         Prezzo("Prezzo2", "Prezzo 2", kPrezziVendita), Sconto("Sc2", kPrezziVendita),
         Prezzo("Prezzo3", "Prezzo 3", kPrezziVendita), Sconto("Sc3", kPrezziVendita),
         Prezzo("PrezzoIva", "Prezzo con Iva", kPrezziVendita),
         Digitato("DtAggPrezzi", "aggiornati il")
             .In(kPrezziVendita)
             .Accanto()
             .Turno(1)
             .Aiuto("si scrive da sé quando un prezzo cambia"),
         Digitato("Ricarico", "Ricarico %", kPercento).In(kPrezziVendita),
         Mostrato(kPrezzo5, GenereCampo::Etichetta, "Prezzo 5 (costo+%ricarico)")
             .In(kPrezziVendita)
             .Accanto()});
}

void DescrittoreProdotto::AltriDati() {
  Pagina("PaginaAltriDati", "Altri dati");
  Riquadro(kDescrizioni, "Altre descrizioni");
  Campi({Digitato("Descrizione1", "Descrizione 1", kTesto).In(kDescrizioni),
         Digitato("Descrizione2", "Descrizione 2", kTesto).In(kDescrizioni)});
  Riquadro(kClassi, "Categorie e gruppi");
  Campi({DiCodice("CategoriaMag", "Categoria", "categorieMag", kGruppo).In(kClassi).Peso(1),
         DiCodice("CategoriaMag2", "Categoria 2", "categorieMag2", kGruppo)
             .In(kClassi)
             .Colonna(1)
             .Peso(1),
         DiCodice("GruppoMag", "Gruppo", "gruppiMag", kGruppo).In(kClassi).Peso(1),
         DiCodice("GruppoMag2", "Gruppo 2", "gruppiMag2", kGruppo).In(kClassi).Colonna(1).Peso(1)});
  Riquadro(kScorte, "Magazzino", false);
  Campi({Quantita("Scorta", "Scorta", kScorte),
         Quantita("QMinRiordino", "Quantità minima di riordino", kScorte),
         Digitato("PosMag", "Posizione in magazzino", 12).In(kScorte),
         Digitato("ggScad", "Giorni di scadenza", 5)
             .In(kScorte)
             .Aiuto("durata del prodotto: il carico di un lotto ne propone la scadenza")});
  Riquadro(kAcquisto, "Acquisto e provvigioni", false);
  Campi({Digitato("uma", "Unità di misura d'acquisto", kMisura).In(kAcquisto),
         Digitato("ConversioneA", "Conversione", kPrezzo)
             .Decimali(dQ_)
             .In(kAcquisto)
             .Aiuto("quante unità di vendita fanno una d'acquisto"),
         Digitato("Prov", "Provvigione %", kPercento).In(kAcquisto)});
  Riquadro(kCampagna, "Campagna");
  Campi({Prezzo("PrezzoCampagna", "Prezzo campagna", kCampagna),
         Digitato("ScCampagna", "sconto %", kPercento).In(kCampagna).Accanto(),
         Digitato("ValidDal", "valido dal").In(kCampagna).Accanto(),
         Digitato("ValidAl", "al").In(kCampagna).Accanto()});
}

void DescrittoreProdotto::Fornitori() {
  Pagina(kPaginaFornitori, "Costi e fornitori");
  Riquadro(kCosto, "Costo", false);
  Campi({Prezzo("CostoDigitato", "Costo digitato", kCosto)});
  Riquadro(kCostoDistinta, "Costo dalla distinta base", false);
  Campi({Digitato(kTipoCosto)
             .Di(GenereCampo::Opzioni)
             .In(kCostoDistinta)
             .AlMargine()
             .Scelte({{kMedio, "Medio", "OptionMedio"}, {kUltimo, "Ultimo", "OptionUltimo"}}),
         Digitato("Command1", "Aggiorna costo")
             .Di(GenereCampo::Pulsante)
             .In(kCostoDistinta)
             .Accanto()
             .Aiuto("porta nel costo digitato il costo dei componenti")});
}

void DescrittoreProdotto::File() {
  Pagina(kPaginaFile, "Immagini e documenti");
  Riquadro(kFile, "File associati");
  Campi({Digitato("FileImmagine", "Immagine", kNomeFile).In(kFile).Mostra(44),
         Digitato("FileDescrizione", "Documento", kNomeFile).In(kFile).Mostra(44)});
}

}  // namespace

void DescriviProdotto(archives::DescrizioneArchivio& archivio, const DalMagazzino& magazzino) {
  DescrittoreProdotto descrittore(archivio, magazzino);
  descrittore.Anagrafica();
  descrittore.AltriDati();
  descrittore.Fornitori();
  descrittore.File();
}

}  // namespace fenalto::warehouse
