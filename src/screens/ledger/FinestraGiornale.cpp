#include "screens/ledger/FinestraGiornale.h"

namespace fenalto::screens {
namespace {

using ledger::SceltaGiornale;
using records::Campo;
using records::Digitato;

constexpr const char* kOrdine = "Ordine";

constexpr records::CampoRiga<SceltaGiornale> kGiornale[] = {
    Campo<&SceltaGiornale::daDt>("DaDt"),
    Campo<&SceltaGiornale::aaDt>("AaDt"),
    Campo<&SceltaGiornale::perArticolo>(kOrdine),
    Campo<&SceltaGiornale::intesto>("Intesto"),
    Campo<&SceltaGiornale::daPag>("DaPag"),
    Campo<&SceltaGiornale::daArticolo>("DaArticolo"),
    Campo<&SceltaGiornale::stampaNArticolo>("StampaNArticolo"),
    Campo<&SceltaGiornale::stampaCompatta>("StampaCompatta")};

records::DescrizioneForma FormaGiornale(int anno) {
  constexpr const char* kPeriodo = "FramePeriodo";
  constexpr const char* kSuo = "FrameOrdine";
  constexpr const char* kPagine = "FramePagine";
  return {
      .campi = {Digitato("DaDt", "dal").In(kPeriodo), Digitato("AaDt", "al").In(kPeriodo).Accanto(),
                Digitato("DaArticolo", "dall'articolo n.").In(kPeriodo).Accanto(),
                Digitato(kOrdine)
                    .Di(records::GenereCampo::Opzioni)
                    .In(kSuo)
                    .AlMargine()
                    .Scelte({{"True", "data + n.articolo", "PerArticolo"},
                             {"False", "data+tipo movimento (fatt.acquisti,vendita,mov.non iva)",
                              "PerFat"}}),
                Digitato("Intesto", "Intesto e numero le pagine").In(kPagine).AlMargine(),
                Digitato("DaPag", "dalla pagina n.").In(kPagine).Colonna(1),
                Digitato("StampaNArticolo", "Stampo il numero di articolo").In(kPagine).AlMargine(),
                Digitato("StampaCompatta", "Stampa compatta").In(kPagine).Colonna(1).AlMargine()},
      .riquadri = {
          {.nome = kPeriodo, .titolo = "Registrazioni del " + std::to_string(anno), .largo = true},
          {.nome = kSuo, .titolo = "Ordine", .largo = true},
          {.nome = kPagine, .titolo = "Pagine", .largo = true}}};
}

}  // namespace

FinestraGiornale::FinestraGiornale(Finestre& finestre)
    : FinestraRapporto(QStringLiteral("StGiornale"), tr("Stampa Libro Giornale"), finestre),
      giornale_(finestre.Sessione(), finestre.Uscite()) {
  Proponi(kGiornale, giornale_.Proposta());
  RifiutiDi(giornale_);
  Compila(FormaGiornale(Sessione().Anno()), Piede::Opzioni);
}

void FinestraGiornale::Cambiato(const std::string& campo) {
  if (campo != kOrdine) return;
  Sessione().ScriviImpostazione({}, "config", "PerArticolo", Record().Testo(kOrdine));
}

void FinestraGiornale::Stampa() {
  giornale_.Stampa(Scelta(kGiornale));
}

}  // namespace fenalto::screens
