#include "warehouse/stock/ColonneMagazzino.h"

#include <algorithm>
#include <array>

#include "core/reports/Cornice.h"
#include "warehouse/stock/Decimali.h"

namespace fenalto::warehouse {
namespace {

constexpr const char* kChiave = "StProdotti_Colonne";
constexpr const char* kProposte = "codice descrizione um esistenza costoUltimo valoreUltimo";

constexpr auto kColonne = std::to_array<ColonnaMagazzino>({
    {"codice", "codice"},
    {"descrizione", "descrizione"},
    {"um", "unità di misura"},
    {"barcode", "codice a barre"},
    {"posMag", "posizione"},
    {"categoria", "categoria"},
    {"categoria2", "categoria 2"},
    {"gruppo", "gruppo"},
    {"gruppo2", "gruppo 2"},
    {"costoFornitore", "costi fornitori"},
    {"esistenza", "esistenza"},
    {"carichi", "somma carichi"},
    {"scarichi", "somma scarichi"},
    {"ordinato", "ordinato a fornitori"},
    {"impegnato", "impegnato"},
    {"disponibile", "disponibile"},
    {"disponibileReale", "disponibile reale"},
    {"scorta", "scorta"},
    {"costoDigitato", "costo digitato"},
    {"valoreDigitato", "valore al c. digitato"},
    {"costoUltimo", "costo ultimo"},
    {"valoreUltimo", "valore al c. ultimo"},
    {"costoMedio", "costo medio"},
    {"valoreMedio", "valore al c. medio"},
    {"prezzo1", "prezzo 1"},
    {"sc1", "sconto 1"},
    {"prezzo2", "prezzo 2"},
    {"sc2", "sconto 2"},
    {"prezzo3", "prezzo 3"},
    {"sc3", "sconto 3"},
    {"prezzoIva", "prezzo con IVA"},
    {"prezzoRicaricato", "prezzo con ricarico"},
    {"ricarico", "% ricarico"},
    {"dtAggPrezzi", "data prezzi"},
    {"prezzoCampagna", "prezzo campagna"},
    {"scCampagna", "sconto campagna"},
    {"validDal", "campagna dal"},
    {"validAl", "campagna al"},
    {"codIva", "codice IVA"},
});

using C = reports::ColonnaDi<LineaMagazzino>;
using Lettore = std::function<Valore(const RigaMagazzino&)>;

/// The cell of the product itself.
std::function<Valore(const LineaMagazzino&)> Sua(Lettore leggi) {
  return [leggi = std::move(leggi)](const LineaMagazzino& linea) {
    return linea.seguito ? Valore() : leggi(*linea.riga);
  };
}

/// A picture of so many places, with marks of thousands.
std::string Cifre(std::size_t posti, int decimali) {
  std::string coda = ",";
  coda.append(static_cast<std::size_t>(decimali), '#');
  std::string testa;
  for (std::size_t i = 0; testa.size() + coda.size() < posti; ++i) {
    testa.insert(testa.begin(), i % 4 == 3 ? '.' : '#');
  }
  if (testa.front() == '.') testa.front() = '#';
  return testa + coda;
}

/// Makes the columns: those that aren't ticked are neither on paper nor on the sheet.
class Fabbrica {
 public:
  Fabbrica(const std::vector<std::string>& scelte, int decQ, int decP)
      : scelte_(scelte), decQ_(decQ), decP_(decP) {}

  void Testo(const char* titolo, const std::string& sagoma, const char* foglio, Lettore leggi) {
    Aggiungi(titolo, sagoma, {foglio, Tipo::Testo}, Sua(std::move(leggi)));
  }
  void Giorno(const char* titolo, const std::string& sagoma, const char* foglio, Lettore leggi) {
    Aggiungi(titolo, sagoma, {foglio, Tipo::Data}, Sua(std::move(leggi)));
  }
  void Quantita(const char* titolo, const char* foglio, Lettore leggi) {
    Cifra(titolo, foglio, decQ_, std::move(leggi), false);
  }
  void Prezzo(const char* titolo, const char* foglio, Lettore leggi) {
    Cifra(titolo, foglio, decP_, std::move(leggi), false);
  }
  void ValoreDi(const char* foglio, Lettore leggi) {
    Cifra("valore", foglio, 2, std::move(leggi), true);
  }
  void Sconto(const char* titolo, const char* foglio, Lettore leggi) {
    Aggiungi(titolo, "###,##", {foglio, Tipo::Importo}, Sua(std::move(leggi)));
  }
  void Altra(C colonna) {
    Completa(colonna);
    colonne_.push_back(std::move(colonna));
  }
  [[nodiscard]] const std::vector<C>& Colonne() const { return colonne_; }

 private:
  void Cifra(const char* titolo, const char* foglio, int decimali, Lettore leggi, bool sommata) {
    // Without decimals the comma's place is the blank between two columns.
    const std::string sagoma = decimali == 0 ? Cifre(14, 0) : Cifre(13, decimali) + " ";
    Aggiungi(titolo, sagoma, {foglio, Tipo::Importo, decimali}, Sua(std::move(leggi)), sommata);
  }
  void Aggiungi(const char* titolo, const std::string& sagoma, reports::ColonnaFoglio foglio,
                std::function<Valore(const LineaMagazzino&)> valore, bool sommata = false) {
    C colonna;
    colonna.titolo = titolo;
    colonna.sagoma = sagoma;
    colonna.foglio = std::move(foglio);
    colonna.sommata = sommata;
    colonna.valore = std::move(valore);
    Altra(std::move(colonna));
  }
  void Completa(C& colonna) {
    const std::string nome = kColonne.at(colonne_.size()).nome;
    colonna.campo = "R_" + nome;
    colonna.campoTotale = "R_TOT" + nome;
    colonna.mostrata = std::ranges::find(scelte_, nome) != scelte_.end();
    if (!colonna.mostrata) colonna.foglio.titolo.clear();
  }

  const std::vector<std::string>& scelte_;
  int decQ_;
  int decP_;
  std::vector<C> colonne_;
};

template <class T>
Lettore DelProdotto(T Prodotto::* membro) {
  return [membro](const RigaMagazzino& r) { return Valore(r.prodotto.*membro); };
}
Lettore DiEsistenza(Importo Esistenza::* membro) {
  return [membro](const RigaMagazzino& r) { return Valore(r.esistenza.*membro); };
}
Lettore DiCosto(Importo Costi::* membro) {
  return [membro](const RigaMagazzino& r) { return Valore(r.costi.*membro); };
}
Lettore DiValore(Importo RigaMagazzino::* membro) {
  return [membro](const RigaMagazzino& r) { return Valore(r.*membro); };
}

void Anagrafica(Fabbrica& f) {
  f.Testo("codice", "$$$$$$$$$$$$$$$$$$ ", "Codice", DelProdotto(&Prodotto::cod));
  f.Testo("descrizione", reports::Ripeti("§", 40) + " ", "Descrizione", [](const RigaMagazzino& r) {
    return Valore(r.prodotto.descrizione.substr(0, r.prodotto.descrizione.find('\n')));
  });
  f.Testo("U.M.", "$$$$ ", "U.M.", DelProdotto(&Prodotto::um));
  f.Testo("barcode", " $$$$$$$$$$$$$$$$ ", "Codice a barre", DelProdotto(&Prodotto::barcode));
  f.Testo("pos.mag.", " $$$$$$$$$$$ ", "Posizione", DelProdotto(&Prodotto::posMag));
  f.Testo("categ.", " $$$$$$$ ", "Categoria", DelProdotto(&Prodotto::categoriaMag));
  f.Testo("categ.2", " $$$$$$$ ", "Categoria 2", DelProdotto(&Prodotto::categoriaMag2));
  f.Testo("gruppo", " $$$$$$$ ", "Gruppo", DelProdotto(&Prodotto::gruppoMag));
  f.Testo("gruppo 2", " $$$$$$$$", "Gruppo 2", DelProdotto(&Prodotto::gruppoMag2));
  C fornitori;
  fornitori.titolo = "costo fornit.";
  fornitori.sagoma = "$$$$$$$$$$$$$ ";
  fornitori.codice = true;
  fornitori.foglio = {"Costi fornitori", Tipo::Testo};
  fornitori.valore = [](const LineaMagazzino& linea) { return Valore(linea.costoFornitore); };
  f.Altra(std::move(fornitori));
}

void Figure(Fabbrica& f) {
  f.Quantita("Esistenza", "Esistenza", DiEsistenza(&Esistenza::esistenza));
  f.Quantita("Somm.Carichi", "Carichi", DiEsistenza(&Esistenza::carichi));
  f.Quantita("Som.Scarichi", "Scarichi", DiEsistenza(&Esistenza::scarichi));
  f.Quantita("Ordinato for.", "Ordinato", DiEsistenza(&Esistenza::ordinato));
  f.Quantita("Impegnato", "Impegnato", DiEsistenza(&Esistenza::impegnato));
  f.Quantita("Disponibile", "Disponibile", DiEsistenza(&Esistenza::disponibile));
  f.Quantita("Disp.reale", "Disponibile reale", DiEsistenza(&Esistenza::disponibileReale));
  f.Quantita("Scorta", "Scorta", DelProdotto(&Prodotto::scorta));
  f.Prezzo("costo digit.", "Costo digitato", DelProdotto(&Prodotto::costoDigitato));
  f.ValoreDi("Valore al costo digitato", DiValore(&RigaMagazzino::valoreDigitato));
  f.Prezzo("costo ultimo", "Costo ultimo", DiCosto(&Costi::ultimo));
  f.ValoreDi("Valore al costo ultimo", DiValore(&RigaMagazzino::valoreUltimo));
  f.Prezzo("costo medio", "Costo medio", DiCosto(&Costi::medio));
  f.ValoreDi("Valore al costo medio", DiValore(&RigaMagazzino::valoreMedio));
}

void Prezzi(Fabbrica& f) {
  f.Prezzo("prezzo1", "Prezzo 1", DelProdotto(&Prodotto::prezzo));
  f.Sconto("sc1%", "Sconto 1 %", DelProdotto(&Prodotto::sc));
  f.Prezzo("prezzo2", "Prezzo 2", DelProdotto(&Prodotto::prezzo2));
  f.Sconto("sc2%", "Sconto 2 %", DelProdotto(&Prodotto::sc2));
  f.Prezzo("prezzo3", "Prezzo 3", DelProdotto(&Prodotto::prezzo3));
  f.Sconto("sc3%", "Sconto 3 %", DelProdotto(&Prodotto::sc3));
  f.Prezzo("prezzo c.iva", "Prezzo con IVA", DelProdotto(&Prodotto::prezzoIva));
  f.Prezzo("prezzo(%ric)", "Prezzo con ricarico",
           [](const RigaMagazzino& r) { return Valore(r.PrezzoRicaricato()); });
  f.Sconto("%ricar", "Ricarico %", DelProdotto(&Prodotto::ricarico));
  f.Giorno("data agg.", " $$$$$$$$$", "Aggiornamento prezzi", DelProdotto(&Prodotto::dtAggPrezzi));
  f.Prezzo("prezzo camp.", "Prezzo campagna", DelProdotto(&Prodotto::prezzoCampagna));
  f.Sconto("sc%", "Sconto campagna %", DelProdotto(&Prodotto::scCampagna));
  f.Giorno("valid.dal", " $$$$$$$$$", "Campagna dal", DelProdotto(&Prodotto::validDal));
  f.Giorno("valid.al", " $$$$$$$$$", "Campagna al", DelProdotto(&Prodotto::validAl));
  f.Testo("cod.iva", " $$$$$$$", "Codice IVA", DelProdotto(&Prodotto::codIva));
}

std::vector<std::string> Parole(const std::string& testo) {
  std::vector<std::string> parole;
  for (const ColonnaMagazzino& colonna : kColonne) {
    if ((" " + testo + " ").find(" " + std::string(colonna.nome) + " ") != std::string::npos) {
      parole.emplace_back(colonna.nome);
    }
  }
  return parole;
}

}  // namespace

std::span<const ColonnaMagazzino> ColonneMagazzino() {
  return kColonne;
}

std::vector<std::string> ColonneRicordate(Ambiente& ambiente) {
  std::vector<std::string> colonne = Parole(ambiente.Config(kChiave));
  return colonne.empty() ? Parole(kProposte) : colonne;
}

void RicordaColonne(Ambiente& ambiente, const std::vector<std::string>& colonne) {
  std::string testo;
  for (const std::string& colonna : colonne) testo += (testo.empty() ? "" : " ") + colonna;
  ambiente.ScriviImpostazione({}, "config", kChiave, testo);
}

TabellaMagazzino::TabellaMagazzino(Ambiente& ambiente, const std::vector<std::string>& colonne)
    : colonne_(colonne),
      decQ_(DecimaliQuantita(ambiente)),
      decP_(warehouse::DecimaliPrezzo(ambiente)),
      tabella_(Fai()) {}

reports::Tabella<LineaMagazzino> TabellaMagazzino::Fai() const {
  Fabbrica fabbrica(colonne_, decQ_, decP_);
  Anagrafica(fabbrica);
  Figure(fabbrica);
  Prezzi(fabbrica);
  return reports::Tabella<LineaMagazzino>(fabbrica.Colonne());
}

bool TabellaMagazzino::Mostra(const std::string& colonna) const {
  return std::ranges::find(colonne_, colonna) != colonne_.end();
}

bool TabellaMagazzino::TuttiZero(const std::vector<Valore>& celle) const {
  for (std::size_t i = 0; i < celle.size(); ++i) {
    const reports::Colonna& colonna = tabella_.Tutte()[i];
    if (!colonna.mostrata || colonna.foglio.tipo != Tipo::Importo) continue;
    if (!celle[i].Nullo() && !celle[i].Importo().Zero()) return false;
  }
  return true;
}

}  // namespace fenalto::warehouse
