#include "screens/warehouse/codes/PaginaProdotti.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Qs.h"
#include "warehouse/stock/Decimali.h"

namespace fenalto::screens {
namespace {

using warehouse::QualiProdotti;

/// "12 prodotti", "i primi 200 prodotti".
QString QuantiProdotti(const FormaElenco::Letti& letti) {
  if (letti.righe == 0) return {};
  if (letti.righe == 1) return PaginaProdotti::tr("1 prodotto");
  return (letti.finito ? PaginaProdotti::tr("%1 prodotti") : PaginaProdotti::tr("i primi %1"))
      .arg(letti.righe);
}

const char* NomeGriglia(QualiProdotti quali) {
  switch (quali) {
    case QualiProdotti::PerFornitore:
      return "GrigliaFornitori";
    case QualiProdotti::ConDistinta:
      return "GrigliaDistinte";
    case QualiProdotti::Componenti:
      return "GrigliaComponenti";
    case QualiProdotti::Tutti:
      break;
  }
  return "GrigliaProdotti";
}

}  // namespace

PaginaProdotti::PaginaProdotti(Ambiente& ambiente, QualiProdotti quali, const QString& finestra)
    : ambiente_(ambiente),
      quali_(quali),
      prodotti_(ambiente, quali),
      ancheFuoriUso_(Casella("AncheFuoriUso", tr("anche fuori uso"))),
      elenco_(new ElencoCercato(Forma(finestra), prodotti_)) {
  auto* colonna = new QVBoxLayout(this);
  if (quali_ == QualiProdotti::Tutti) {
    auto* categorie = new QHBoxLayout;
    cat_ = Filtro(*categorie, "cat", tr("categoria"), "categorieMag");
    cat2_ = Filtro(*categorie, "cat2", tr("categoria 2"), "categorieMag2");
    auto* gruppi = new QHBoxLayout;
    gr_ = Filtro(*gruppi, "gr", tr("gruppo"), "gruppiMag");
    gr2_ = Filtro(*gruppi, "gr2", tr("gruppo 2"), "gruppiMag2");
    conto_ = Filtro(*gruppi, "conto", tr("conto"), "conti");
    colonna->addLayout(categorie);
    colonna->addLayout(gruppi);
  } else if (quali_ == QualiProdotti::PerFornitore) {
    auto* riga = new QHBoxLayout;
    fornitore_ = Filtro(*riga, "fornitore", tr("fornitore"), "fornitori");
    colonna->addLayout(riga);
  }
  elenco_->Aggiungi(ancheFuoriUso_);
  elenco_->Griglia().QuandoVuota(tr("nessun prodotto trovato"));
  colonna->addWidget(elenco_, 1);
  connect(ancheFuoriUso_, &QCheckBox::toggled, this, [this] { Ricarica(); });
  connect(elenco_, &ElencoCercato::Scelto, this, &PaginaProdotti::Scelto);
}

PaginaProdotti::~PaginaProdotti() {
  // Its rows come from the reader, which goes first.
  delete elenco_;
}

FormaElenco PaginaProdotti::Forma(const QString& finestra) const {
  const int decimali = warehouse::DecimaliPrezzo(ambiente_);
  FormaElenco forma{.finestra = finestra,
                    .griglia = QString::fromLatin1(NomeGriglia(quali_)),
                    .cerca = QStringLiteral("CercaProdotti"),
                    .stato = QStringLiteral("StatoProdotti"),
                    .segnaposto = tr("parole della descrizione, codice, codice a barre"),
                    .colonne = {{tr("Codice"), Tipo::Testo, 110, 2, QStringLiteral("Cod")},
                                {tr("Descrizione"), Tipo::Testo, 340},
                                {tr("U.m."), Tipo::Testo, 50, 2, QStringLiteral("um")}},
                    .testo = QuantiProdotti};
  auto& colonne = forma.colonne;
  if (quali_ == QualiProdotti::PerFornitore) {
    // Ten columns stand in a small window.
    constexpr int kStretta = 200;
    colonne[1].larghezza = kStretta;
    colonne.push_back({tr("Fornitore"), Tipo::Testo, 75});
    colonne.push_back({tr("Nome"), Tipo::Testo, 140, 2, QStringLiteral("ragsoc1")});
    colonne.push_back({tr("Suo codice"), Tipo::Testo, 95, 2, QStringLiteral("codprfor")});
    colonne.push_back({tr("Costo"), Tipo::Importo, 75, decimali, QStringLiteral("Prezzo")});
    for (const char* sconto : {"Sc1", "Sc2", "Sc3"}) {
      colonne.push_back({QString::fromLatin1(sconto), Tipo::Importo, 50, 2});
    }
  } else if (quali_ != QualiProdotti::Componenti) {
    colonne.push_back({tr("Codice a barre"), Tipo::Testo, 130, 2, QStringLiteral("Barcode")});
  }
  if (quali_ == QualiProdotti::Tutti) {
    colonne.push_back({tr("Prezzo 1"), Tipo::Importo, 100, decimali, QStringLiteral("Prezzo")});
  }
  colonne.push_back({tr("Fuori uso"), Tipo::Testo, 75, 2, QStringLiteral("FuoriUso")});
  return forma;
}

CampoCodice* PaginaProdotti::Filtro(QHBoxLayout& riga, const char* nome, const QString& didascalia,
                                    const char* fonte) {
  constexpr int kCaratteri = 8;
  auto* campo = new CampoCodice(QString::fromLatin1(nome), archives::Fonte(ambiente_, fonte));
  campo->setPlaceholderText(tr("tutti"));
  riga.addWidget(Didascalia(didascalia, campo));
  riga.addWidget(ConDescrizione(campo, kCaratteri), 1);
  connect(campo, &CampoCodice::Scelto, this, [this] { Ricarica(); });
  connect(campo, &QLineEdit::editingFinished, this, [this] { Ricarica(); });
  return campo;
}

void PaginaProdotti::Ricarica() {
  const auto codice = [](const CampoCodice* campo) {
    return campo == nullptr ? std::string() : campo->Codice();
  };
  prodotti_.Restringi({.cat = codice(cat_),
                       .cat2 = codice(cat2_),
                       .gr = codice(gr_),
                       .gr2 = codice(gr2_),
                       .conto = codice(conto_),
                       .fornitore = codice(fornitore_),
                       .ancheFuoriUso = ancheFuoriUso_->isChecked()});
  elenco_->Ricarica();
}

}  // namespace fenalto::screens
