#include "screens/vat/register/PaginaLiquidazioneIva.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QVBoxLayout>
#include <algorithm>

#include "core/values/FormatoImporto.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/lists/Griglia.h"
#include "screens/common/look/Misure.h"
#include "screens/common/reports/GraficoBarre.h"
#include "vat/settlement/ConfrontoLiquidazioni.h"

namespace fenalto::screens {
namespace {

constexpr int kLunghezzaDescr = 50;

/// "gen" for a month, "1° trim" for a quarter.
QString NomeBreve(const vat::PeriodoIva& periodo) {
  if (periodo.aaMese > periodo.daMese) {
    return PaginaLiquidazioneIva::tr("%1° trim").arg(periodo.aaMese / 3);
  }
  constexpr int kLettere = 3;
  return Qs(periodo.testo).left(kLettere).toLower();
}

}  // namespace

PaginaLiquidazioneIva::PaginaLiquidazioneIva(DatiRegistroIva& dati, const QString& finestra,
                                             QWidget* genitore)
    : QWidget(genitore),
      dati_(dati),
      griglia_(new Griglia(QStringLiteral("GrigliaLiquidazione"), finestra,
                           {{tr("Voce"), Tipo::Testo, 400},
                            {tr("Importo"), Tipo::Importo, 130, dati.Decimali()},
                            {tr("Anno precedente"), Tipo::Importo, 130, dati.Decimali(),
                             QStringLiteral("Anno prec.")}})),
      titolo_(new QLabel),
      risultato_(new QLabel),
      grafico_(new GraficoBarre(QStringLiteral("GraficoIva"))) {
  titolo_->setObjectName(QStringLiteral("TitoloLiquidazione"));
  titolo_->setWordWrap(true);
  griglia_->Elastica(0);
  // The lines tell a sum from above to below.
  griglia_->horizontalHeader()->setSectionsClickable(false);
  grafico_->setAccessibleName(tr("Iva a debito e a credito per periodo dell'anno"));
  auto* colonna = new QVBoxLayout;
  InGrassetto(*risultato_);
  risultato_->setObjectName(QStringLiteral("RisultatoLiquidazione"));
  auto* sopra = new QHBoxLayout;
  sopra->addWidget(titolo_, 1);
  sopra->addWidget(risultato_);
  colonna->addLayout(sopra);
  constexpr int kParteGriglia = 5;
  constexpr int kParteGrafico = 2;
  colonna->addWidget(griglia_, kParteGriglia);
  colonna->addWidget(grafico_, kParteGrafico);
  auto* riga = new QHBoxLayout(this);
  riga->addWidget(CreaDati());
  riga->addLayout(colonna, 1);
  MostraTesto(tr("Scegliere il periodo e confermarlo"));
}

QGroupBox* PaginaLiquidazioneIva::CreaDati() {
  auto* riquadro = new QGroupBox(tr("Oltre ai registri"));
  auto* griglia = new QGridLayout(riquadro);
  int riga = 0;
  const auto percento = [&](const char* nome, const QString& testo) {
    auto* campo = dati_.ImportoDi(nome, 0);
    constexpr int kCifre = 7;
    LargoCaratteri(campo, kCifre);
    griglia->addWidget(Didascalia(testo, campo), riga, 0);
    griglia->addWidget(campo, riga, 1);
    ++riga;
  };
  percento("ProRata", tr("Pro-rata indetraibile %"));
  percento("Interessi", tr("Interessi %"));
  const auto titolo = [&](const QString& testo) {
    griglia->addWidget(new QLabel(testo), riga++, 0, 1, 2);
  };
  const auto voce = [&](const char* nome) {
    const std::string nomeDescr = std::string(nome) + "Descr";
    auto* descrizione = dati_.Testo(nomeDescr.c_str(), kLunghezzaDescr);
    auto* importo = dati_.ImportoDi(nome, dati_.Decimali());
    descrizione->setMinimumWidth(Cresciuta(250));
    descrizione->setPlaceholderText(tr("descrizione"));
    descrizione->setAccessibleName(tr("descrizione"));
    importo->setAccessibleName(tr("importo"));
    griglia->addWidget(descrizione, riga, 0);
    griglia->addWidget(importo, riga, 1);
    ++riga;
  };
  auto* credito = dati_.ImportoDi("CreditoPrec", dati_.Decimali());
  titolo(tr("In diminuzione"));
  griglia->addWidget(Didascalia(tr("Credito precedente"), credito), riga, 0);
  griglia->addWidget(credito, riga++, 1);
  for (const char* nome : {"ImpMeno0", "ImpMeno1", "ImpMeno2"}) voce(nome);
  titolo(tr("In aumento"));
  for (const char* nome : {"ImpPiu0", "ImpPiu1"}) voce(nome);
  griglia->setRowStretch(riga, 1);
  return riquadro;
}

void PaginaLiquidazioneIva::MostraTesto(const QString& testo) {
  griglia_->Modello().Righe({});
  titolo_->setText(testo);
  risultato_->clear();
  grafico_->MostraTesto({});
}

void PaginaLiquidazioneIva::Leggi() {
  totali_.reset();
  Calcola();
}

void PaginaLiquidazioneIva::Calcola() {
  if (!dati_.confermato) return MostraTesto(tr("Scegliere il periodo e confermarlo"));
  if (!totali_) {
    auto totali = dati_.registro.Totali();
    if (!totali) return MostraTesto(Qs(totali.Errore().messaggio));
    totali_ = std::move(totali).Valore();
  }
  const auto liquidazione = dati_.registro.Liquida(*totali_);
  if (!liquidazione) return MostraTesto(Qs(liquidazione.Errore().messaggio));
  MostraRighe(liquidazione.Valore());
  MostraAndamento(liquidazione.Valore());
}

void PaginaLiquidazioneIva::MostraRighe(const vat::Liquidazione& liquidazione) {
  const auto precedente = vat::LiquidazioneMemorizzata(
      dati_.Sessione(), liquidazione.periodo.anno - 1, liquidazione.periodo.cod);
  std::vector<std::vector<Valore>> righe;
  for (const auto& riga : vat::AffiancaLiquidazioni(liquidazione.righe, precedente)) {
    righe.push_back({Valore(riga.descrizione), Valore(riga.importo), Valore(riga.precedente)});
  }
  griglia_->Modello().Righe(std::move(righe));
  QString titolo = tr("Liquidazione iva %1 %2")
                       .arg(Qs(liquidazione.periodo.testo))
                       .arg(liquidazione.periodo.anno);
  if (precedente.empty()) {
    titolo += tr(" - del %1 non c'è la liquidazione").arg(liquidazione.periodo.anno - 1);
  }
  titolo_->setText(titolo);
  // The last sum, whatever the grid has room for.
  const auto& voci = liquidazione.righe;
  const auto ultima = std::find_if(voci.rbegin(), voci.rend(),
                                   [](const vat::RigaLiquidazione& riga) { return riga.totale; });
  risultato_->setText(
      ultima == voci.rend()
          ? QString()
          : QStringLiteral("%1  %2").arg(Qs(ultima->descrizione),
                                         Qs(ScriviImporto(ultima->importo, dati_.Decimali()))));
}

void PaginaLiquidazioneIva::MostraAndamento(const vat::Liquidazione& liquidazione) {
  std::vector<GraficoBarre::Gruppo> gruppi;
  const auto testo = [this](Importo importo) {
    return Qs(ScriviImporto(importo, dati_.Decimali()));
  };
  for (const auto& uno : vat::AndamentoIva(dati_.Sessione(), liquidazione)) {
    const QString nome = NomeBreve(uno.periodo);
    gruppi.push_back(
        {nome,
         {uno.debito, uno.credito},
         uno.presente
             ? tr("%1\na debito %2\na credito %3").arg(nome, testo(uno.debito), testo(uno.credito))
             : tr("%1\nnon ancora liquidato").arg(nome)});
  }
  grafico_->Mostra({{tr("iva a debito"), {150, 40, 30}, {245, 140, 120}},
                    {tr("iva a credito"), {20, 95, 60}, {125, 215, 160}}},
                   std::move(gruppi),
                   {{{0, 1}, tr("per periodo del %1").arg(liquidazione.periodo.anno)}});
}

}  // namespace fenalto::screens
