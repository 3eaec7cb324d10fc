#include "duedates/riba/FileRiba.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

#include "core/reports/FileAccanto.h"
#include "core/values/Intero128.h"
#include "core/values/Testo.h"
#include "duedates/riba/VerificaFileRiba.h"

namespace fenalto::duedates {

namespace {

constexpr std::int64_t kDecimillesimiPerCentesimo = 100;

/// To the nearest cent, halves away from zero. Amounts can't overflow: they have two decimals more.
std::int64_t Centesimi(Importo importo) {
  constexpr std::int64_t kMezzo = kDecimillesimiPerCentesimo / 2;
  const std::int64_t n = importo.Decimillesimi();
  const std::int64_t resto = n % kDecimillesimiPerCentesimo;
  const std::int64_t centesimi = n / kDecimillesimiPerCentesimo;
  if (resto >= kMezzo) return centesimi + 1;
  return resto <= -kMezzo ? centesimi - 1 : centesimi;
}

/// Of a number that isn't negative.
std::string InCifre(Intero128 numero) {
  std::string cifre;
  do {
    cifre.insert(cifre.begin(), static_cast<char>('0' + static_cast<int>(numero % 10)));
    numero /= 10;
  } while (numero != 0);
  return cifre;
}

std::string DueCifre(int numero) {
  const std::string cifre = std::to_string(numero % 100);
  return cifre.size() < 2 ? "0" + cifre : cifre;
}

std::string_view SenzaBianchiFinali(std::string_view testo) {
  const auto ultimo = testo.find_last_not_of(' ');
  return ultimo == std::string_view::npos ? std::string_view() : testo.substr(0, ultimo + 1);
}

bool SoloCifre(std::string_view testo) {
  return std::ranges::all_of(testo, [](char c) { return c >= '0' && c <= '9'; });
}

/// Writes the fields of one file, record after record.
class Compositore {
 public:
  explicit Compositore(const DistintaRiba& distinta) : distinta_(distinta) {
    for (const RicevutaRiba& ricevuta : distinta.ricevute) totale_ += Centesimi(ricevuta.importo);
    file_.segno = distinta.segno;
  }

  FileRiba Componi() {
    ScriviRecord(RecordRiba::Ib);
    for (const RicevutaRiba& ricevuta : distinta_.ricevute) {
      ricevuta_ = &ricevuta;
      ++numero_;
      ControllaImporto();
      for (int i = 0; i < kRecordPerRicevuta; ++i)
        ScriviRecord(static_cast<RecordRiba>(static_cast<int>(RecordRiba::R14) + i));
    }
    ricevuta_ = &nessuna_;
    if (totale_ < 0) Annota(0, "la distinta ha il totale negativo");
    ScriviRecord(RecordRiba::Ef);
    return std::move(file_);
  }

 private:
  void ScriviRecord(RecordRiba record) {
    ++record_;
    for (const CampoRiba& campo : CampiRiba(record)) file_.testo += Campo(campo);
    file_.testo += kFineRigaRiba;
  }

  std::string Campo(const CampoRiba& campo) {
    switch (campo.genere) {
      case GenereRiba::Fisso:
        return std::string(campo.fisso);
      case GenereRiba::Vuoto:
        return std::string(static_cast<std::size_t>(campo.larghezza), ' ');
      case GenereRiba::Testo:
        return CampoTesto(campo, TestoDi(campo.dato));
      case GenereRiba::Cifre:
        return CampoCifre(campo, TestoDi(campo.dato));
      case GenereRiba::Numero:
        return CampoNumero(campo, NumeroDi(campo.dato));
      case GenereRiba::Data:
        return CampoData(campo);
      case GenereRiba::Segno:
        break;
    }
    const bool piu =
        distinta_.segno == RibaSegno::DellImporto && Centesimi(ricevuta_->importo) >= 0;
    return piu ? "+" : "-";
  }

  std::string CampoTesto(const CampoRiba& campo, const std::string& valore) {
    const auto larghezza = static_cast<std::size_t>(campo.larghezza);
    std::string scritto(SenzaBianchiFinali(LettereRiba(valore)));
    if (scritto.find_first_not_of(' ') == std::string::npos) {
      if (campo.obbligatorio) Annota(Chi(campo), Dato(campo) + " mancante ");
      scritto.clear();
    } else if (scritto != SenzaBianchiFinali(valore)) {
      Annota(Chi(campo), Dato(campo) + valore +
                             "\n contiene lettere che la banca non accetta: scritto «" + scritto +
                             "»");
    }
    if (scritto.size() > larghezza)
      Annota(Chi(campo), Dato(campo) + valore + "\n più lungo di" + std::to_string(larghezza) +
                             " verrà troncato");
    scritto.resize(larghezza, ' ');
    return scritto;
  }

  std::string CampoCifre(const CampoRiba& campo, const std::string& valore) {
    const auto larghezza = static_cast<std::size_t>(campo.larghezza);
    std::string cifre(Rifila(valore));
    if (!SoloCifre(cifre))
      Annota(Chi(campo), Dato(campo) + cifre + "\n deve avere solo cifre: controllare l'archivio");
    else if (!cifre.empty() && cifre.size() < larghezza)
      cifre.insert(0, larghezza - cifre.size(), '0');
    return CampoTesto(campo, cifre);
  }

  /// Cut at the left: what remains is wrong, but wrong in its place.
  std::string CampoNumero(const CampoRiba& campo, Intero128 numero) {
    const auto larghezza = static_cast<std::size_t>(campo.larghezza);
    std::string cifre = InCifre(numero < 0 ? -numero : numero);
    if (cifre.size() > larghezza) {
      Annota(Chi(campo),
             "dato numerico " + std::string(campo.nome) + " " + cifre + " più lungo di" +
                 std::to_string(larghezza) + " verrà troncato",
             true);
      cifre.erase(0, cifre.size() - larghezza);
    }
    return std::string(larghezza - cifre.size(), '0') + cifre;
  }

  std::string CampoData(const CampoRiba& campo) {
    const Data data = campo.dato == DatoRiba::Scadenza ? ricevuta_->scadenza : distinta_.data;
    if (!data.Nulla())
      return DueCifre(data.Giorno()) + DueCifre(data.Mese()) + DueCifre(data.Anno());
    Annota(Chi(campo), Dato(campo) + " mancante ");
    return std::string(static_cast<std::size_t>(campo.larghezza), ' ');
  }

  [[nodiscard]] Intero128 NumeroDi(DatoRiba dato) const {
    switch (dato) {
      case DatoRiba::Importo:
        return Centesimi(ricevuta_->importo);
      case DatoRiba::ImportoTotale:
        return totale_;
      case DatoRiba::NumeroRecord:
        return record_;
      default:  // of the receipt, and of all of them at the end
        return numero_;
    }
  }

  [[nodiscard]] std::string TestoDi(DatoRiba dato) const {
    if (dato >= DatoRiba::DebitoreAbi) return TestoRicevuta(dato);
    switch (dato) {
      case DatoRiba::CodiceSia:
        return distinta_.banca.codSia;
      case DatoRiba::AbiBanca:
        return distinta_.banca.abi;
      case DatoRiba::CabBanca:
        return distinta_.banca.cab;
      case DatoRiba::ContoBanca:
        return distinta_.banca.contoCorrente;
      case DatoRiba::CreditoreRagSoc1:
        return distinta_.creditore.ragSoc1;
      case DatoRiba::CreditoreRagSoc2:
        return distinta_.creditore.ragSoc2;
      case DatoRiba::CreditoreIndirizzo:
        return distinta_.creditore.indirizzo;
      case DatoRiba::CreditoreLocalita:
        return distinta_.creditore.localita;
      case DatoRiba::CreditorePiva:
        return distinta_.creditore.piva;
      default:
        return {};
    }
  }

  [[nodiscard]] std::string TestoRicevuta(DatoRiba dato) const {
    const DebitoreRiba& debitore = ricevuta_->debitore;
    switch (dato) {
      case DatoRiba::DebitoreAbi:
        return debitore.abi;
      case DatoRiba::DebitoreCab:
        return debitore.cab;
      case DatoRiba::DebitoreRagSoc1:
        return debitore.ragSoc1;
      case DatoRiba::DebitoreRagSoc2:
        return debitore.ragSoc2;
      case DatoRiba::DebitorePiva:
        return debitore.piva;
      case DatoRiba::DebitoreIndirizzo:
        return debitore.indirizzo;
      case DatoRiba::DebitoreCap:
        return debitore.cap;
      case DatoRiba::DebitoreLocalita:
        return debitore.localita + " " + debitore.prov;
      case DatoRiba::DebitoreBanca:
        return debitore.banca + " " + debitore.agenzia;
      case DatoRiba::Riferimenti:
        return ricevuta_->descrizione;
      default:
        return {};
    }
  }

  void ControllaImporto() {
    const Importo importo = ricevuta_->importo;
    const std::string chi = "ricevuta " + std::to_string(numero_) + ": importo " + importo.Testo();
    if (importo.Decimillesimi() % kDecimillesimiPerCentesimo != 0)
      Annota(numero_, chi + " con frazioni di centesimo: scritto al centesimo più vicino");
    if (Centesimi(importo) >= 0) return;
    if (distinta_.segno == RibaSegno::SempreMeno)
      Annota(numero_,
             chi +
                 " negativo: con il segno fisso «-» (RibaSegno) la banca lo leggerebbe come un "
                 "incasso; togliere la scadenza dalla distinta",
             true);
  }

  static std::string Dato(const CampoRiba& campo) {
    return "dato : " + std::string(campo.nome) + "\n";
  }

  /// The receipt that a field speaks of.
  [[nodiscard]] int Chi(const CampoRiba& campo) const {
    return ricevuta_ == &nessuna_ || DellaDistinta(campo.dato) ? 0 : numero_;
  }

  void Annota(int ricevuta, std::string messaggio, bool grave = false) {
    const auto nota = std::ranges::find_if(file_.note, [&](const NotaRiba& altra) {
      return altra.ricevuta == ricevuta && altra.messaggio == messaggio;
    });
    if (nota != file_.note.end())
      ++nota->volte;
    else
      file_.note.push_back({std::move(messaggio), ricevuta, 1, grave});
  }

  const DistintaRiba& distinta_;
  FileRiba file_;
  const RicevutaRiba nessuna_;
  const RicevutaRiba* ricevuta_ = &nessuna_;  ///< in hand; none in the records of the file
  int numero_ = 0;
  int record_ = 0;
  Intero128 totale_ = 0;
};

std::optional<Errore> Impedimento(const FileRiba& file) {
  const auto grave = std::ranges::find_if(file.note, &NotaRiba::grave);
  if (grave != file.note.end()) return Errore{grave->messaggio};
  const LetturaRiba letto = VerificaRiba(file.testo, file.segno);
  const auto errore = std::ranges::find_if(letto.segnalazioni, &SegnalazioneRiba::grave);
  if (errore == letto.segnalazioni.end()) return std::nullopt;
  return Errore{errore->Testo()};
}

}  // namespace

FileRiba ComponiFileRiba(const DistintaRiba& distinta) {
  return Compositore(distinta).Componi();
}

Esito<bool> ScriviFileRiba(const std::filesystem::path& percorso, const FileRiba& file) {
  if (auto impedimento = Impedimento(file)) return *std::move(impedimento);
  reports::FileAccanto accanto(percorso);
  accanto.Scrivi(file.testo);
  if (auto chiuso = accanto.Chiudi(); !chiuso) return chiuso;
  const auto riletto = LeggiByteRiba(percorso);
  if (!riletto) return riletto.Errore();
  if (riletto.Valore() == file.testo) return true;
  return Errore{"«" + percorso.string() +
                "» riletto è diverso da quanto scritto: ripetere la "
                "scrittura su un altro disco"};
}

}  // namespace fenalto::duedates
