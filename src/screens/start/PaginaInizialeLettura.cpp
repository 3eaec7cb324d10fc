// What the start page reads, a step at a time between events.
#include <QTimer>
#include <exception>

#include "core/values/FormatoImporto.h"
#include "duedates/reports/ScadenzeVicine.h"
#include "overview/UltimiRecord.h"
#include "screens/common/fields/Qs.h"
#include "screens/start/PaginaIniziale.h"
#include "screens/start/Via.h"
#include "vat/register/IvaInCorso.h"

namespace fenalto::screens {
namespace {

constexpr int kPassi = 5;
/// While a backup is being made its state is looked at again after so many milliseconds.
constexpr int kAncora = 1'500;

QString ScadenzeInParole(std::int64_t quante) {
  if (quante == 0) return QObject::tr("nessuna scadenza");
  return quante == 1 ? QObject::tr("1 scadenza") : QObject::tr("%1 scadenze").arg(quante);
}

QString GiorniFa(int giorni) {
  if (giorni <= 0) return QObject::tr("oggi");
  return giorni == 1 ? QObject::tr("ieri") : QObject::tr("%1 giorni fa").arg(giorni);
}

QString NomiPeriodi(const std::vector<vat::PeriodoIva>& periodi) {
  QStringList nomi;
  for (const auto& periodo : periodi) nomi << Qs(periodo.testo).toLower();
  return nomi.join(QStringLiteral(", "));
}

}  // namespace

QString PaginaIniziale::Euro(Importo importo) const {
  return Qs(ScriviImporto(importo, 2));
}

/// What can't be read is said where it would stand: nobody has asked for it, so no message box.
void PaginaIniziale::Passo() {
  if (!ambiente_.DittaAperta() || passo_ >= kPassi) {
    inLettura_ = false;
    return;
  }
  // The log-in may have come after the page.
  if (passo_ == 0) MostraSecondoDiritti();
  RiquadroPagina* const riquadri[kPassi] = {clienti_.riquadro, fornitori_.riquadro, iva_, recenti_,
                                            copie_};
  auto* riquadro = riquadri[passo_];
  const int quale = passo_++;
  if (riquadro->isVisibleTo(this)) {
    try {
      riquadro->Nota({});
      switch (quale) {
        case 0:
          LeggiScadenze(clienti_, "C");
          break;
        case 1:
          LeggiScadenze(fornitori_, "F");
          break;
        case 2:
          LeggiIva();
          break;
        case 3:
          LeggiRecenti();
          break;
        default:
          LeggiCopie();
      }
    } catch (const std::exception& errore) {
      riquadro->Nota(tr("Non si può leggere: %1").arg(QString::fromUtf8(errore.what())), true);
    }
  }
  QTimer::singleShot(0, this, &PaginaIniziale::Passo);
}

void PaginaIniziale::LeggiScadenze(const Scadenze& dove, const char* classe) {
  const auto vicine = duedates::LeggiScadenzeVicine(ambiente_, classe, ambiente_.Ora().Oggi());
  const auto mostra = [this](Via& via, const QString& titolo,
                             const duedates::GruppoScadenze& gruppo) {
    via.Mostra(titolo, ScadenzeInParole(gruppo.quante), Euro(gruppo.importo));
  };
  mostra(*dove.scadute, tr("Scaduto"), vicine.scadute);
  dove.scadute->Avvisa(vicine.scadute.quante > 0);
  mostra(*dove.vicine, tr("Prossimi 7 giorni"), vicine.vicine);
}

void PaginaIniziale::LeggiIva() {
  const auto iva = vat::LeggiIvaInCorso(ambiente_);
  prossimaIva_->Avvisa(false);
  if (!iva) {
    prossimaIva_->Mostra(tr("Niente da liquidare"), tr("nell'anno %1").arg(ambiente_.Anno()));
    return;
  }
  const QString titolo = tr("%1 %2").arg(Qs(iva->periodo.testo).toLower()).arg(iva->periodo.anno);
  if (!iva->errore.empty()) {
    prossimaIva_->Mostra(titolo, tr("entro il %1").arg(Qs(iva->versamento.Testo())));
    iva_->Nota(Qs(iva->errore), true);
    return;
  }
  const bool credito = !(iva->importo > Importo());
  const bool passata = iva->versamento < ambiente_.Ora().Oggi();
  const QString giorno = Qs(iva->versamento.Testo());
  const QString quando = iva->importo.Zero() ? tr("niente da versare")
                         : credito           ? tr("a credito")
                         : iva->sottoMinimo  ? tr("sotto il minimo: non si versa")
                         : passata           ? tr("si versava entro il %1").arg(giorno)
                         : iva->finito       ? tr("da versare entro il %1").arg(giorno)
                                             : tr("entro il %1").arg(giorno);
  prossimaIva_->Avvisa(passata && !credito);
  prossimaIva_->Mostra(titolo, iva->finito ? quando : tr("finora, %1").arg(quando),
                       Euro(iva->importo.Assoluto()));
  if (!iva->arretrati.empty()) {
    iva_->Nota(tr("Da liquidare prima: %1").arg(NomiPeriodi(iva->arretrati)));
  }
}

void PaginaIniziale::LeggiRecenti() {
  const auto ultimi = overview::UltimiRecord(ambiente_, ultimi_.size());
  rinvii_.clear();
  for (std::size_t i = 0; i < ultimi_.size(); ++i) {
    ultimi_[i]->setVisible(i < ultimi.size());
    if (i >= ultimi.size()) continue;
    rinvii_.push_back(ultimi[i].rinvio);
    ultimi_[i]->Mostra(Qs(ultimi[i].titolo), {}, Qs(ultimi[i].dettaglio));
    ultimi_[i]->setToolTip(
        Qs(ultimi[i].titolo + "\n" + ultimi[i].genere + " " + ultimi[i].dettaglio));
  }
  if (ultimi.empty()) {
    recenti_->Nota(tr("Qui si ritrova ciò che si è registrato o aperto per ultimo."));
  }
}

void PaginaIniziale::LeggiCopie() {
  const StatoCopie stato = ambiente_.Copie();
  copia_->Avvisa(stato.Vecchia());
  if (stato.inCorso) {
    copia_->Mostra(tr("Copia in corso"), tr("gli archivi si copiano mentre si lavora"));
    QTimer::singleShot(kAncora, this, [this] {
      if (ambiente_.DittaAperta()) LeggiCopie();
    });
    return;
  }
  if (stato.ultima.Nulla()) {
    copia_->Mostra(tr("Ancora nessuna copia"), tr("si fa da sé, una al giorno"), tr("manca"));
    return;
  }
  copia_->Mostra(tr("Ultima copia"), Qs(stato.ultima.Testo()), GiorniFa(stato.giorni));
  if (stato.Vecchia()) {
    copie_->Nota(tr("È vecchia: controllare lo spazio sul disco e i permessi della cartella."),
                 true);
  }
}

}  // namespace fenalto::screens
