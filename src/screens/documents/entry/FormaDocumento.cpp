#include "screens/documents/entry/FormaDocumento.h"

#include <algorithm>
#include <utility>

#include "core/archives/FonteCodici.h"

namespace fenalto::screens {
namespace {

using records::CampoForma;
using records::DiCodice;
using records::Digitato;
using records::DiMoneta;
using records::Mostrato;
using records::StatoCampo;
using Genere = records::GenereCampo;

constexpr const char* kGiorno = "15, 1503, 150324 o 15/3: il resto si completa da solo";
constexpr const char* kDestinazione = "RiquadroDestinazione";
constexpr const char* kTrasporto = "RiquadroTrasporto";
constexpr const char* kPagamento = "RiquadroPagamento";
constexpr const char* kRitenuta = "RiquadroRitenuta";
constexpr const char* kFatturazione = "RiquadroFatturazione";
constexpr const char* kNote = "RiquadroNote";
constexpr int kCodice = 10;

/// Fields that stand outside the frame that says whether they are shown.
constexpr std::pair<const char*, const char*> kDelRiquadro[] = {
    {"Pagamento", kPagamento},
    {"ScontoCassa", kPagamento},
    {"NumDocCarico", "RiquadroCarico"},
    {"DtDocCarico", "RiquadroCarico"},
};

/// A text in the first pair of its frame's grid, or in a further one.
CampoForma Riga(const char* nome, const char* didascalia, const char* riquadro, int colonna = 0) {
  return Digitato(nome, didascalia).In(riquadro).Colonna(colonna).Peso(1);
}

CampoForma Codificato(const char* nome, const char* didascalia, const char* fonte,
                      const char* riquadro, int colonna = 0) {
  constexpr int kCaratteri = 7;
  return DiCodice(nome, didascalia, fonte, kCaratteri).In(riquadro).Colonna(colonna).Peso(1);
}

void AggiungiTrasporto(std::vector<CampoForma>& campi) {
  constexpr int kMisura = 8;
  constexpr int kDataOra = 17;
  campi.insert(
      campi.end(),
      {Codificato("CodiceCausaleTrasporto", "Causale", "causaliTrasporto", kTrasporto),
       Riga("CausaleTrasporto", "Testo", kTrasporto, 1),
       Digitato("Trasporto", "A cura del")
           .Di(Genere::Combinata)
           .In(kTrasporto)
           .Colonna(2)
           .Scelte({{"M"}, {"D"}, {"V"}})
           .Aiuto("M mittente, D destinatario, V vettore"),
       Digitato("Colli", "Colli").In(kTrasporto).Mostra(kMisura).Accanto(),
       Codificato("CodAspetto", "Aspetto", "aspetti", kTrasporto),
       Riga("Aspetto", "Testo", kTrasporto, 1),
       Digitato("DataOra", "Data e ora").In(kTrasporto).Colonna(2).Mostra(kDataOra),
       Digitato("Peso", "Peso").In(kTrasporto).Mostra(kMisura).Accanto(),
       Codificato("Porto", "Porto", "porti", kTrasporto),
       Codificato("CodiceVettore", "Vettore", "vettori", kTrasporto, 1),
       Riga("Vettore1", "Righe del vettore", kTrasporto).Colonne(3),
       Riga("Vettore2", "", kTrasporto).Accanto(), Riga("Vettore3", "", kTrasporto).Accanto(),
       Riga("Vettore4", "", kTrasporto).Accanto()});
}

void AggiungiRitenute(std::vector<CampoForma>& campi) {
  constexpr int kImporto = 11;
  for (const char* quale : {"", "2"}) {
    const std::string numero = quale;
    campi.push_back(
        DiCodice("RaCod" + numero, *quale == '\0' ? "1. Codice" : "2. Codice", "ritenute", 6)
            .In(kRitenuta)
            .Peso(1));
    campi.push_back(Digitato("RaDescrizione" + numero, "Testo").In(kRitenuta).Colonna(1).Peso(1));
    campi.push_back(DiMoneta("RaImporto" + numero, "Importo", kImporto).In(kRitenuta).Colonna(2));
  }
}

StatoCampo StatoDi(documents::FattureCli& documento, const std::string& nome) {
  StatoCampo stato = documento.StatoTesta(nome);
  for (const auto& [campo, riquadro] : kDelRiquadro) {
    if (nome != campo) continue;
    stato.visibile = stato.visibile && documento.StatoTesta(riquadro).visibile;
  }
  return stato;
}

std::string Unite(const std::vector<std::string>& righe, std::size_t da) {
  std::string unite;
  for (std::size_t i = da; i < righe.size(); ++i) unite += (i == da ? "" : " - ") + righe[i];
  return unite;
}

}  // namespace

records::DescrizioneForma FormaTestaDocumento() {
  return {
      .campi = {Digitato("NumDoc", "Numero")
                    .Mostra(8)
                    .Aiuto("vuoto: lo assegna il programma alla conferma")
                    .Turno(1),
                Mostrato("EtichettaProbabile", Genere::Sommessa).Accanto(),
                Mostrato("ProbabileNumDoc", Genere::Titolo).Accanto(),
                Digitato("Dt", "Data").Colonna(1).Aiuto(kGiorno).Turno(1),
                Digitato("NumDocCarico", "Doc. del mittente n.").Accanto().Mostra(10),
                Digitato("DtDocCarico", "del").Accanto().Aiuto(kGiorno),
                DiCodice("CliFor", "Cliente", "clienti", kCodice).Nomina("EtichettaParte").Peso(1),
                Mostrato("NotaDestinazione", Genere::Sommessa, "Destinazione").Colonna(1),
                Mostrato("IndirizzoParte", Genere::Sommessa).Peso(1),
                DiCodice("Mag", "Magazzino da scaricare", "magazzini", 6)
                    .Colonna(1)
                    .Nomina("EtichettaMag")
                    .Peso(1),
                DiCodice("MagDest", "a", "magazzini", 6).Accanto().Peso(1),
                Digitato("Varie1", "Note").Peso(1).Turno(1),
                DiCodice("Pagamento", "Pagamento", "pagamenti", 8).Colonna(1).Peso(1).Turno(1),
                Digitato("ScontoCassa", "Sconto finale %").Accanto().Mostra(6).Turno(1),
                Mostrato("NotaEsenzione", Genere::Titolo).Colonne(2).Peso(1)},
      .stretta = true};
}

records::DescrizioneForma FormaAltriDati() {
  std::vector<CampoForma> campi = {
      Riga("RagSoc1Dest", "Ragione sociale", kDestinazione),
      Riga("ragsoc2Dest", "", kDestinazione, 1),
      Riga("indirizzodest", "Indirizzo", kDestinazione),
      Digitato("capdest", "CAP").In(kDestinazione).Colonna(1).Mostra(6),
      Digitato("localitadest", "Località").In(kDestinazione).Accanto().Peso(1),
      Digitato("provdest", "Prov.").In(kDestinazione).Accanto().Mostra(3)};
  AggiungiTrasporto(campi);
  campi.insert(
      campi.end(),
      {Codificato("Agente", "Agente", "agenti", kPagamento),
       Riga("ScadPag", "Scadenze", kPagamento).Accanto(),
       Digitato("Fatturo", "da fatturare").In(kFatturazione).AlMargine(),
       Digitato("EscludoFatAuto", "non in automatico")
           .In(kFatturazione)
           .Accanto()
           .Aiuto("escluso dalla fatturazione automatica"),
       Mostrato("Fattura", Genere::Etichetta, "fattura n.").In(kFatturazione).Accanto(),
       Digitato("Ep", "iva in sospensione").In(kFatturazione).AlMargine(),
       Digitato("DtIncasso", "Data incasso").In(kFatturazione).Accanto(),
       Digitato("NVarAnPrec", "nota di variazione anni precedenti").In(kFatturazione).Accanto(),
       Riga("Varie2", "Note", kNote), Riga("Varie3", "", kNote).Accanto(),
       Riga("Varie4", "", kNote).Accanto(), Riga("Chiave", "Chiave", kNote).Accanto()});
  AggiungiRitenute(campi);
  return {.campi = std::move(campi),
          .riquadri =
              {{.nome = kDestinazione, .titolo = "Destinazione della merce", .largo = true},
               {.nome = kTrasporto, .titolo = "Trasporto", .largo = true},
               {.nome = kPagamento, .titolo = "Pagamento", .largo = true},
               {.nome = kFatturazione, .titolo = "Fatturazione", .accanto = true},
               {.nome = kNote, .titolo = "Altre note", .largo = true},
               {.nome = kRitenuta, .titolo = "Ritenute", .pagina = kFoglioRitenute, .largo = true}},
          .pagine = {{.nome = kFoglioRitenute, .titolo = ""}},
          .stretta = true};
}

StatoCampo StatoTestaDocumento(documents::FattureCli& documento, const std::string& nome) {
  if (nome == "EtichettaProbabile" || nome == "ProbabileNumDoc") {
    if (!documento.Nuova()) return {.visibile = false};
    return {.testo = nome == "ProbabileNumDoc"
                         ? std::to_string(documento.ProbabileNumDoc())
                         : "il n.documento, se non forzato nella casella a sx e'-->"};
  }
  if (nome == "IndirizzoParte") return {.testo = Unite(documento.DatiParte(), 1)};
  if (nome == "NotaEsenzione") {
    const std::string nota = documento.NotaEsenzione();
    return {.visibile = !nota.empty(), .testo = nota};
  }
  if (nome == "NotaDestinazione") {
    return {.visibile = !documento.Destinazioni().empty(), .testo = ""};
  }
  if (nome == kFatturazione) {
    const bool qualcosa = std::ranges::any_of(
        std::initializer_list<const char*>{"Fatturo", "EscludoFatAuto", "Ep", "NVarAnPrec"},
        [&](const char* campo) { return documento.StatoTesta(campo).visibile; });
    return {.visibile = qualcosa};
  }
  StatoCampo stato = StatoDi(documento, nome);
  if (nome == "CliFor" && !stato.fonte) {
    const std::string& cfp = documento.Tipo().cfp;
    stato.fonte = archives::NomeFonteConti(cfp == "F" ? "F" : "C");
    stato.didascalia = cfp == "F" ? "Fornitore" : "Cliente";
  }
  return stato;
}

records::DescrizioneForma FormaRigaDocumento(int decQ, int decP) {
  constexpr int kPrezzo = 11;
  constexpr int kQuantita = 9;
  constexpr int kSconto = 5;
  return {.campi = {DiCodice("CodiceRiga", "Prodotto", "prodotti", 16).Peso(1),
                    Mostrato("NotaRiga", Genere::Sommessa).Accanto().Peso(1),
                    Digitato("Descrizione", "Descrizione").Di(Genere::Note),
                    Digitato("Quantita", "Quantità").Mostra(kQuantita).Decimali(decQ),
                    Digitato("um", "U.M.").Accanto().Mostra(3).Turno(1),
                    Digitato("Prezzo", "Prezzo").Accanto().Mostra(kPrezzo).Decimali(decP),
                    Digitato("Sc1", "Sconti %").Accanto().Mostra(kSconto).Decimali(0),
                    Digitato("Sc2", "").Accanto().Mostra(kSconto).Decimali(0),
                    Digitato("Sc3", "").Accanto().Mostra(kSconto).Decimali(0),
                    DiMoneta("Importo", "Importo", kPrezzo).Accanto().Fermo().Turno(2),
                    DiCodice("CodIva", "Codice iva", "codiciIva", 6).Peso(2),
                    DiCodice("Conto", "Conto", "conti", 9).Accanto().Peso(3),
                    Digitato("Costo", "Costo").Accanto().Mostra(kPrezzo).Decimali(decP).Turno(1),
                    Digitato("Prov", "Provv. %").Accanto().Mostra(kSconto).Decimali(0).Turno(1),
                    Digitato("CodPrCli", "Cod. cliente").Accanto().Mostra(10).Turno(1),
                    Digitato("Posi", "Posizione", 6).Accanto().Turno(2),
                    Digitato("QuantitaA", "D'acquisto").Mostra(kQuantita).Decimali(decQ).Turno(1),
                    Digitato("PrezzoA", "Prezzo").Accanto().Mostra(kPrezzo).Decimali(decP).Turno(1),
                    Digitato("Lottox", "Lotto").Accanto().Mostra(12).Turno(1),
                    Digitato("DtScad", "Scadenza").Accanto().Turno(1),
                    Digitato("Campo1", "Campo 1").Accanto().Mostra(kQuantita).Turno(1),
                    Digitato("Campo2", "Campo 2").Accanto().Mostra(kQuantita).Turno(1)},
          .stretta = true};
}

}  // namespace fenalto::screens
