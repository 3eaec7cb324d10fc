#include "assets/CategorieCespiti.h"

#include "core/values/Testo.h"

namespace fenalto::assets {

namespace {

using records::DiCodice;
using records::Digitato;

std::optional<Rifiuto> ControllaAliquote(archives::ContestoArchivio& contesto) {
  for (const char* campo : {"Perc", "Perc1"}) {
    const Importo perc = contesto.scheda.Leggi(campo).Importo();
    if (!perc.Negativo() && perc <= Importo::DaUnita(100)) continue;
    return Rifiuto{"la percentuale va da 0 a 100: " + TestoPercento(perc) + " non è ammessa",
                   campo};
  }
  return std::nullopt;
}

/// The first year counts half, in the first place (art. 102, comma 2, TUIR).
void ProponiPrimoAnno(archives::ContestoArchivio& contesto, const std::string& campo) {
  Scheda& scheda = contesto.scheda;
  if (!UgualeTesto(campo, "Perc") || !scheda.Leggi("Perc1").Importo().Zero()) return;
  scheda.Scrivi("Perc1", scheda.Leggi("Perc").Importo().Diviso(Importo::DaUnita(2)));
}

archives::DescrizioneArchivio DescrizioneCategorie() {
  constexpr const char* kAliquote = "FrameAliquote";
  constexpr const char* kConti = "FrameConti";
  archives::DescrizioneArchivio d;
  d.finestra = "CategorieCespiti";
  d.titolo = "Archivio Categorie cespiti";
  d.tabella = "CategorieCespiti";
  d.campoDescrizione = "DescrCat";
  d.titoloNuovo = "nuova categoria";
  d.titoloRecord = "categoria ";
  d.caratteriCodice = 8;
  d.portaCodice = true;
  d.campi = {Digitato("DescrCat", "Descrizione", 40),
             Digitato("Perc", "% ordinaria", 8).In(kAliquote).Elencato(),
             Digitato("Perc1", "% primo anno", 8)
                 .In(kAliquote)
                 .Accanto()
                 .Elencato()
                 .Aiuto("di solito la metà di quella ordinaria"),
             DiCodice("ContoAmm", "Conto ammortamento", "conti", 10)
                 .In(kConti)
                 .Peso(1)
                 .Aiuto("costo dell'esercizio, in dare della registrazione delle quote"),
             DiCodice("ContoFondo", "Conto fondo amm.to", "conti", 10)
                 .In(kConti)
                 .Peso(1)
                 .Aiuto("in avere della registrazione delle quote")};
  d.riquadri = {{.nome = kAliquote, .titolo = "Percentuali di ammortamento", .largo = true},
                {.nome = kConti, .titolo = "Registrazione delle quote", .largo = true}};
  d.lasciato = ProponiPrimoAnno;
  d.controlli = {ControllaAliquote};
  return d;
}

}  // namespace

std::vector<archives::DescrizioneArchivio> ArchiviCespiti() {
  return {DescrizioneCategorie()};
}

AliquoteCategoria LeggiAliquote(Ambiente& ambiente, const std::string& cat) {
  const std::vector<Coppia> chiave = {{"Cod", cat}};
  const auto campo = [&](const char* nome) {
    return ambiente.Cerca("tessarc", "CategorieCespiti", chiave, nome);
  };
  return {cat, NzStr(campo("DescrCat")), campo("Perc").Importo(), campo("Perc1").Importo()};
}

IntervalloCategorie TutteLeCategorie(Ambiente& ambiente) {
  const auto estremo = [&](const char* verso) {
    return NzStr(ambiente.ArchivioDi("tessarc").Singolo(
        std::string("SELECT TOP 1 Cod FROM CategorieCespiti ORDER BY Cod") + verso));
  };
  return {estremo(""), estremo(" DESC")};
}

}  // namespace fenalto::assets
