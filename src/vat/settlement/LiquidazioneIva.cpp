// The settlement itself: from the totals of the registers to its lines. No store.
#include "vat/settlement/LiquidazioneIva.h"

#include "core/values/Aritmetica.h"
#include "core/values/FormatoImporto.h"
#include "vat/settlement/LiquidazioneInterno.h"
#include "vat/settlement/MinimoVersamento.h"

namespace fenalto::vat {

namespace {

std::string Percentuale(Importo percento) {
  return ScriviImporto(percento, 0, false) + "%";
}

Importo Quota(Importo importo, Importo percento) {
  return Arrotonda(importo.Percento(percento), 2, ModoArrotonda::Vicino);
}

/// Registers of purchases whose VAT is deducted.
bool ConProRata(std::string_view tipo) {
  return tipo == "03" || tipo == "05" || tipo == "08A";
}

Importo ConSegno(Importo importo, int segno) {
  return segno < 0 ? -importo : importo;
}

/// Lines in the making. Amounts of the registers stand with the sign with which they enter the
/// balance, so that the column adds up to it; those below it as they were given.
class Calcolo {
 public:
  Calcolo(const PeriodoIva& periodo, const DatiLiquidazione& dati) {
    l_.periodo = periodo;
    l_.dati = dati;
  }

  void Registro(const TotaleRegistro& totale) {
    if (totale.segno == 0) return;
    const IntervalloRegistro& i = totale.intervallo;
    IvaRegistro r{i.riva,
                  i.tipo,
                  totale.conto,
                  totale.segno,
                  totale.Iva(),
                  // What stands on 08 and 08A is collected: nothing of it is deferred any more.
                  i.daIncassi ? Importo() : totale.IvaDifferita(),
                  totale.ivaScorporata,
                  {}};
    const bool ventilato = i.tipo == kTipoVentilato && l_.periodo.Ultimo();
    ventilato_ = ventilato_ || ventilato;
    Somma("Registro " + i.riva + " " + i.descrizione + (ventilato ? "*" : ""),
          ConSegno(r.iva, r.segno));
    if (!r.differita.Zero()) {
      Somma(i.tipo == "01" ? "storno per differimento esigiblità iva VENDITE"
                           : "storno per differimento esigiblità iva ACQUISTI",
            ConSegno(r.differita, -r.segno));
    }
    // Deferred VAT meets it when it is paid, on the register of type 08A.
    if (ConProRata(i.tipo) && !l_.dati.proRata.Zero()) {
      r.proRata = Quota(r.Dovuta(), l_.dati.proRata);
      if (!r.proRata.Zero() || i.tipo == "03") {
        Somma("Pro-Rata " + Percentuale(l_.dati.proRata), ConSegno(r.proRata, -r.segno));
      }
    }
    l_.registri.push_back(std::move(r));
  }

  Liquidazione Chiudi() {
    const Importo saldo = l_.saldoPeriodo;
    const bool debito = saldo > Importo();
    Totale(debito ? "IVA a debito del periodo" : "IVA a credito del periodo", saldo.Assoluto());
    // The year's summary has no settlement: it stops at the balance.
    l_.risultato = l_.daVersare = saldo;
    if (l_.periodo.Annuale()) return std::move(l_);
    Variazione({"Credito precedente", l_.dati.creditoPrec}, -1);
    for (const VoceManuale& voce : l_.dati.meno) Variazione(voce, -1);
    for (const VoceManuale& voce : l_.dati.piu) Variazione(voce, 1);
    l_.daVersare = l_.risultato;
    if (l_.risultato > Importo()) {
      Dovuta();
    } else {
      Totale("IVA A CREDITO", l_.risultato.Assoluto());
    }
    if (ventilato_) {
      for (const char* nota : kNoteVentilazione) Nota(nota);
    }
    return std::move(l_);
  }

 private:
  void Riga(std::string descrizione, Importo importo, int segno = 0) {
    l_.righe.push_back({std::move(descrizione), importo, false, segno});
  }
  void Totale(std::string descrizione, Importo importo) {
    l_.righe.push_back({std::move(descrizione), importo, false, 0, true});
  }
  void Nota(std::string_view testo) { l_.righe.push_back({std::string(testo), Importo(), true}); }

  void Somma(std::string descrizione, Importo importo) {
    Riga(std::move(descrizione), importo);
    l_.saldoPeriodo += importo;
  }

  void Variazione(const VoceManuale& voce, int segno) {
    if (voce.importo.Zero()) return;
    Riga(voce.descrizione, voce.importo, segno);
    l_.risultato += ConSegno(voce.importo, segno);
  }

  void Dovuta() {
    if (!l_.dati.interessi.Zero()) {
      Totale("IVA A DEBITO", l_.risultato);
      l_.interessi = Quota(l_.risultato, l_.dati.interessi);
      Riga("INTERESSI " + Percentuale(l_.dati.interessi), l_.interessi, 1);
      l_.daVersare += l_.interessi;
    }
    Totale("IVA DA VERSARE", l_.daVersare);
    l_.sottoMinimo = SottoMinimo(l_.periodo, l_.daVersare);
    if (!l_.sottoMinimo) return;
    Nota(MinimoDelPeriodo(l_.periodo).nota);
    Nota(kDaAggiungere);
  }

  Liquidazione l_;
  bool ventilato_ = false;
};

}  // namespace

Importo Liquidazione::Credito() const {
  return risultato.Negativo() ? -risultato : Importo();
}

Importo Liquidazione::ProRata() const {
  Importo totale;
  for (const IvaRegistro& registro : registri) totale += registro.proRata;
  return totale;
}

std::string ErroreDatiLiquidazione(const DatiLiquidazione& dati) {
  const Importo cento = Importo::DaUnita(100);
  if (dati.proRata.Negativo() || dati.proRata > cento) {
    return "La percentuale di pro-rata è " + Percentuale(dati.proRata) +
           ": deve stare tra 0 e 100. Correggerla e ripetere.";
  }
  if (dati.interessi.Negativo() || dati.interessi > cento) {
    return "La percentuale degli interessi è " + Percentuale(dati.interessi) +
           ": deve stare tra 0 e 100. Correggerla e ripetere.";
  }
  return {};
}

Liquidazione CalcolaLiquidazione(const PeriodoIva& periodo,
                                 const std::vector<TotaleRegistro>& registri,
                                 const DatiLiquidazione& dati) {
  Calcolo calcolo(periodo, dati);
  for (const TotaleRegistro& registro : registri) calcolo.Registro(registro);
  return calcolo.Chiudi();
}

}  // namespace fenalto::vat
