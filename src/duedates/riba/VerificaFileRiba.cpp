#include "duedates/riba/VerificaFileRiba.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <utility>

#include "core/session/FileTesto.h"
#include "core/values/Intero128.h"
#include "core/values/Testo.h"

namespace fenalto::duedates {

namespace {

bool Cifra(char c) {
  return c >= '0' && c <= '9';
}

bool Bianco(std::string_view testo) {
  return testo.find_first_not_of(' ') == std::string_view::npos;
}

/// Of at most 15 digits.
std::int64_t DaCifre(std::string_view cifre) {
  std::int64_t numero = 0;
  for (const char c : cifre) numero = numero * 10 + (c - '0');
  return numero;
}

std::string Quota(std::string_view testo) {
  return "«" + LettereRiba(testo) + "»";
}

/// The date of six digits; nothing when there is no such day.
std::optional<Data> LeggiGma(std::string_view testo) {
  constexpr int kUltimoDuemila = 79;
  if (!std::ranges::all_of(testo, Cifra)) return std::nullopt;
  const auto due = [&](std::size_t da) { return static_cast<int>(DaCifre(testo.substr(da, 2))); };
  const int anno = due(4);
  return Data::DaGma(due(0), due(2), anno + (anno <= kUltimoDuemila ? 2000 : 1900));
}

class Verificatore {
 public:
  explicit Verificatore(RibaSegno segno) : segno_(segno) {}

  LetturaRiba Leggi(std::string_view testo) {
    while (!testo.empty() && gravi_ < kMassimoSegnalazioniRiba) {
      ++letto_.righe;
      const auto fine = testo.find('\n');
      Linea(testo.substr(0, fine), fine != std::string_view::npos);
      testo.remove_prefix(fine == std::string_view::npos ? testo.size() : fine + 1);
    }
    if (testo.empty())
      Fine();
    else
      letto_.segnalazioni.push_back({letto_.righe + 1, 1, "troppi errori: lettura interrotta"});
    return std::move(letto_);
  }

 private:
  void Linea(std::string_view linea, bool finita) {
    const bool cr = finita && linea.ends_with('\r');
    if (cr) linea.remove_suffix(1);
    const auto lunghezza = static_cast<int>(std::min<std::size_t>(linea.size(), kColonneRiba));
    if (!cr) Grave(lunghezza + 1, "la riga deve finire con CR LF");
    if (linea.size() != static_cast<std::size_t>(kColonneRiba))
      Grave(lunghezza + 1, "la riga ha " + std::to_string(linea.size()) +
                               " caratteri: devono essere " + std::to_string(kColonneRiba));
    const auto record = RecordDiLinea(linea);
    if (!record) {
      Grave(1, "record sconosciuto " + Quota(linea.substr(0, 3)));
      return;
    }
    Ordine(*record);
    if (*record == RecordRiba::R14) letto_.ricevute.emplace_back();
    for (const CampoRiba& campo : CampiRiba(*record)) {
      const std::string_view parte = ParteDiLinea(linea, campo);
      if (parte.size() == static_cast<std::size_t>(campo.larghezza)) Campo(campo, parte);
    }
  }

  void Ordine(RecordRiba record) {
    const auto numero = [](RecordRiba quale) { return static_cast<int>(quale); };
    bool bene = false;
    std::string attesi;
    if (!ultimo_) {
      bene = record == RecordRiba::Ib;
      attesi = "il file deve iniziare con il record «IB»";
    } else if (*ultimo_ == RecordRiba::Ef) {
      attesi = "dopo il record «EF» non deve esserci altro";
    } else {
      bene = numero(record) == numero(*ultimo_) + 1 && record != RecordRiba::Ef;
      attesi = "dopo il record " + Quota(CodiceRecord(*ultimo_)) + " deve esserci ";
      if (*ultimo_ == RecordRiba::R70) {
        bene = record == RecordRiba::R14 || record == RecordRiba::Ef;
        attesi += "«14» o «EF»";
      } else {
        attesi += Quota(CodiceRecord(static_cast<RecordRiba>(numero(*ultimo_) + 1)));
      }
    }
    if (!bene) Grave(1, attesi + ": trovato " + Quota(CodiceRecord(record)));
    ultimo_ = record;
  }

  void Campo(const CampoRiba& campo, std::string_view parte) {
    const auto* const strano = std::ranges::find_if_not(parte, AmmessoRiba);
    if (strano != parte.end()) {
      Grave(campo.posizione + static_cast<int>(strano - parte.begin()),
            Nome(campo) + "carattere non ammesso");
      return;
    }
    switch (campo.genere) {
      case GenereRiba::Fisso:
        if (parte != campo.fisso)
          Grave(campo, "deve essere " + Quota(campo.fisso) + ", è " + Quota(parte));
        break;
      case GenereRiba::Vuoto:
        if (!Bianco(parte)) Grave(campo, "deve essere vuoto, è " + Quota(parte));
        break;
      case GenereRiba::Testo:
      case GenereRiba::Cifre:
        CampoTesto(campo, parte);
        break;
      case GenereRiba::Numero:
        CampoNumero(campo, parte);
        break;
      case GenereRiba::Data:
        CampoData(campo, parte);
        break;
      case GenereRiba::Segno:
        CampoSegno(campo, parte.front());
        break;
    }
    if (DellaDistinta(campo.dato)) Uguale(campo, parte);
  }

  void CampoTesto(const CampoRiba& campo, std::string_view parte) {
    if (Bianco(parte)) {
      if (campo.obbligatorio) Avviso(campo, "mancante");
    } else if (campo.genere == GenereRiba::Cifre && !std::ranges::all_of(parte, Cifra)) {
      Avviso(campo, "deve avere solo cifre, è " + Quota(parte));
    }
    if (letto_.ricevute.empty()) return;
    if (campo.dato == DatoRiba::DebitoreRagSoc1) letto_.ricevute.back().debitore = Rifila(parte);
    if (campo.dato == DatoRiba::Riferimenti) letto_.ricevute.back().riferimenti = Rifila(parte);
  }

  void CampoNumero(const CampoRiba& campo, std::string_view parte) {
    const auto* const strano = std::ranges::find_if_not(parte, Cifra);
    if (strano != parte.end()) {
      Grave(campo.posizione + static_cast<int>(strano - parte.begin()),
            Nome(campo) + "deve avere solo cifre, è " + Quota(parte));
      return;
    }
    const std::int64_t numero = DaCifre(parte);
    const auto ricevute = static_cast<std::int64_t>(letto_.ricevute.size());
    switch (campo.dato) {
      case DatoRiba::Importo:
        importo_ = numero;
        break;
      case DatoRiba::ImportoTotale:
        if (numero != (totale_ < 0 ? -totale_ : totale_))
          Grave(campo, "è " + std::to_string(numero) + ", diverso dalla somma delle ricevute");
        else if (totale_ < 0)
          Avviso(campo, "la somma delle ricevute è negativa");
        break;
      case DatoRiba::NumeroRecord:
        Pretendi(campo, numero, static_cast<std::int64_t>(letto_.righe));
        break;
      case DatoRiba::NumeroRicevuta:
        if (ultimo_ == RecordRiba::R14) letto_.ricevute.back().numero = static_cast<int>(numero);
        Pretendi(campo, numero, ricevute);
        break;
      default:  // the number in the batch, and how many they were
        Pretendi(campo, numero, ricevute);
        break;
    }
  }

  void Pretendi(const CampoRiba& campo, std::int64_t numero, std::int64_t atteso) {
    if (numero != atteso)
      Grave(campo, "è " + std::to_string(numero) + ", deve essere " + std::to_string(atteso));
  }

  void CampoData(const CampoRiba& campo, std::string_view parte) {
    if (Bianco(parte)) {
      Avviso(campo, "mancante");
      return;
    }
    const auto data = LeggiGma(parte);
    if (!data) {
      Grave(campo, "non è una data ggmmaa: " + Quota(parte));
    } else if (campo.dato == DatoRiba::Scadenza) {
      letto_.ricevute.back().scadenza = *data;
    }
  }

  /// Follows the amount, and closes it.
  void CampoSegno(const CampoRiba& campo, char segno) {
    const std::int64_t importo = std::exchange(importo_, 0);
    const bool meno = segno == '-';
    if (segno_ == RibaSegno::SempreMeno) {
      if (!meno) Grave(campo, "deve essere «-», è " + Quota({&segno, 1}));
    } else if (!meno && segno != '+') {
      Grave(campo, "deve essere «+» o «-», è " + Quota({&segno, 1}));
    } else if (meno && importo == 0) {
      Grave(campo, "è «-» con l'importo a zero");
    }
    const bool negativo = meno && segno_ == RibaSegno::DellImporto;
    const std::int64_t centesimi = negativo ? -importo : importo;
    totale_ += centesimi;
    letto_.ricevute.back().importo = Importo::DaDecimillesimi(centesimi * 100);
  }

  void Uguale(const CampoRiba& campo, std::string_view parte) {
    const auto [primo, nuovo] =
        comuni_.try_emplace(std::pair(campo.dato, campo.larghezza), std::string(parte));
    if (!nuovo && primo->second != parte)
      Grave(campo, "è " + Quota(parte) + ", altrove nel file " + Quota(primo->second));
  }

  void Fine() {
    if (letto_.righe == 0) {
      letto_.segnalazioni.push_back({1, 1, "il file è vuoto"});
      return;
    }
    if (ultimo_ != RecordRiba::Ef) Grave(1, "il file deve finire con il record «EF»");
    if (letto_.ricevute.empty()) Grave(1, "il file non ha ricevute");
    constexpr std::int64_t kMassimo = 1'000'000'000'000'000;
    if (totale_ > -kMassimo && totale_ < kMassimo) letto_.totale = ImportoDa128(totale_ * 100);
  }

  static std::string Nome(const CampoRiba& campo) {
    return campo.nome.empty() ? std::string() : std::string(campo.nome) + ": ";
  }

  void Grave(const CampoRiba& campo, const std::string& messaggio) {
    Grave(campo.posizione, Nome(campo) + messaggio);
  }

  void Grave(int colonna, std::string messaggio) {
    if (++gravi_ <= kMassimoSegnalazioniRiba)
      letto_.segnalazioni.push_back({letto_.righe, colonna, std::move(messaggio)});
  }

  void Avviso(const CampoRiba& campo, const std::string& messaggio) {
    if (++avvisi_ <= kMassimoSegnalazioniRiba)
      letto_.segnalazioni.push_back(
          {letto_.righe, campo.posizione, Nome(campo) + messaggio, false});
  }

  RibaSegno segno_;
  LetturaRiba letto_;
  std::optional<RecordRiba> ultimo_;
  std::int64_t importo_ = 0;  ///< cents of the record in hand, before its sign
  Intero128 totale_ = 0;      ///< cents
  /// What the fields of the batch said first, by content and width.
  std::map<std::pair<DatoRiba, int>, std::string> comuni_;
  std::size_t gravi_ = 0;
  std::size_t avvisi_ = 0;
};

}  // namespace

std::string SegnalazioneRiba::Testo() const {
  return "riga " + std::to_string(riga) + ", colonna " + std::to_string(colonna) + ": " + messaggio;
}

bool LetturaRiba::Buona() const {
  return std::ranges::none_of(segnalazioni, &SegnalazioneRiba::grave);
}

LetturaRiba VerificaRiba(std::string_view testo, RibaSegno segno) {
  return Verificatore(segno).Leggi(testo);
}

Esito<LetturaRiba> VerificaFileRiba(const std::filesystem::path& percorso, RibaSegno segno) {
  const auto byte = LeggiByteRiba(percorso);
  if (!byte) return byte.Errore();
  return VerificaRiba(byte.Valore(), segno);
}

Esito<std::string> LeggiByteRiba(const std::filesystem::path& percorso) {
  const auto errore = [&](int numero) {
    return Errore{"impossibile leggere «" + percorso.string() + "»: " + MotivoDiSistema(numero)};
  };
  std::error_code codice;
  const auto lunghezza = std::filesystem::file_size(percorso, codice);
  if (codice) return errore(codice.value());
  if (lunghezza > kMassimoFileTesto) return errore(EFBIG);
  std::ifstream file(percorso, std::ios::binary);
  if (!file) return errore(errno);
  std::string byte{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  if (file.bad()) return errore(EIO);
  return byte;
}

}  // namespace fenalto::duedates
