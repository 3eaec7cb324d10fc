#include "core/sql/Lessico.h"

#include <array>
#include <cstring>

namespace fenalto::sql {

namespace {

enum Classe : std::uint8_t { kAltro, kSpazio, kLettera, kCifra, kRacchiuso, kSimbolo };

constexpr std::array<std::uint8_t, 256> FaiClassi() {
  std::array<std::uint8_t, 256> t{};
  for (std::size_t c = 0; c < 256; ++c) {
    if (c == ' ' || (c >= '\t' && c <= '\r')) {
      t[c] = kSpazio;
    } else if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c >= 0x80) {
      t[c] = kLettera;
    } else if (c >= '0' && c <= '9') {
      t[c] = kCifra;
    }
  }
  for (char c : {'\'', '"', '[', '#'}) t[static_cast<std::uint8_t>(c)] = kRacchiuso;
  for (char c : {'(', ')', ',', '.', ';', '=', '<', '>', '+', '-', '*', '/', '\\', '&', '^'}) {
    t[static_cast<std::uint8_t>(c)] = kSimbolo;
  }
  return t;
}

constexpr std::array<char, 256> FaiMinuscole() {
  std::array<char, 256> t{};
  for (std::size_t c = 0; c < 256; ++c) {
    t[c] = static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
  }
  return t;
}

constexpr auto kClassi = FaiClassi();
constexpr auto kMinuscole = FaiMinuscole();

constexpr std::uint8_t ClasseDi(char c) {
  return kClassi[static_cast<std::uint8_t>(c)];
}
constexpr char Minuscola(char c) {
  return kMinuscole[static_cast<std::uint8_t>(c)];
}

constexpr int kDecimaliImporto = 4;

}  // namespace

bool ParolaUguale(std::string_view parola, std::string_view minuscola) noexcept {
  if (parola.size() != minuscola.size()) return false;
  for (std::size_t i = 0; i < parola.size(); ++i) {
    if (Minuscola(parola[i]) != minuscola[i]) return false;
  }
  return true;
}

Lessico::Chiave Lessico::ChiaveDi(std::string_view p) {
  switch (p.size()) {
    case 2:
      if (ParolaUguale(p, "by")) return Chiave::By;
      if (ParolaUguale(p, "in")) return Chiave::Lista;
      if (ParolaUguale(p, "or") || ParolaUguale(p, "on")) return Chiave::Operando;
      break;
    case 3:
      if (ParolaUguale(p, "top")) return Chiave::Top;
      if (ParolaUguale(p, "and") || ParolaUguale(p, "not") || ParolaUguale(p, "mod") ||
          ParolaUguale(p, "all")) {
        return Chiave::Operando;
      }
      break;
    case 4:
      if (ParolaUguale(p, "true")) return Chiave::Vero;
      if (ParolaUguale(p, "like")) return Chiave::Come;
      break;
    case 5:
      if (ParolaUguale(p, "false")) return Chiave::Falso;
      if (ParolaUguale(p, "union")) return Chiave::Chiude;
      if (ParolaUguale(p, "where")) return Chiave::Operando;
      break;
    case 6:
      if (ParolaUguale(p, "select")) return Chiave::Seleziona;
      if (ParolaUguale(p, "having")) return Chiave::Chiude;
      if (ParolaUguale(p, "values")) return Chiave::Lista;
      break;
    case 7:
      if (ParolaUguale(p, "between")) return Chiave::Operando;
      break;
    case 8:
      if (ParolaUguale(p, "distinct")) return Chiave::Operando;
      break;
    default:
      break;
  }
  return Chiave::Nessuna;
}

bool Lessico::Rifiuta(std::size_t posizione, const char* motivo) {
  errore_ = ErroreSql{motivo, posizione};
  return false;
}

bool Lessico::Prossimo(Segno& segno) {
  while (i_ < testo_.size() && ClasseDi(testo_[i_]) == kSpazio) ++i_;
  segno = Segno{};
  segno.posizione = i_;
  if (i_ >= testo_.size()) return true;
  const char c = testo_[i_];
  Chiave chiave = Chiave::Nessuna;
  switch (ClasseDi(c)) {
    case kLettera:
      LeggiParola(segno);
      // After a point a word is always a field.
      if (simboloPrima_ != '.') chiave = ChiaveDi(segno.grezzo);
      if (chiave == Chiave::Vero || chiave == Chiave::Falso) segno.genere = GenereSegno::Booleano;
      if (chiave == Chiave::By) livelloBy_ = livello_;
      if (chiave == Chiave::Chiude || chiave == Chiave::Seleziona) livelloBy_ = -1;
      if (chiave == Chiave::Seleziona) livelloLista_ = -1;
      break;
    case kCifra:
      LeggiNumero(segno);
      break;
    case kRacchiuso:
      if (!LeggiRacchiuso(segno, c)) return false;
      break;
    case kSimbolo: {
      const char dopo = i_ + 1 < testo_.size() ? testo_[i_ + 1] : '\0';
      const bool cifra = ClasseDi(dopo) == kCifra;
      const bool punto =
          dopo == '.' && i_ + 2 < testo_.size() && ClasseDi(testo_[i_ + 2]) == kCifra;
      if ((c == '-' && (cifra || punto) && AttendeOperando()) ||
          (c == '.' && cifra && AttendeOperando())) {
        LeggiNumero(segno);
      } else if (!LeggiSimbolo(segno)) {
        return false;
      }
      break;
    }
    default:
      return Rifiuta(i_, "carattere che il linguaggio non ha");
  }
  prima_ = segno.genere;
  simboloPrima_ = segno.simbolo;
  chiavePrima_ = chiave;
  return true;
}

bool Lessico::AttendeOperando() const {
  if (prima_ == GenereSegno::Simbolo) return simboloPrima_ != ')' && simboloPrima_ != '.';
  return (prima_ == GenereSegno::Parola || prima_ == GenereSegno::Fine) &&
         chiavePrima_ != Chiave::Nessuna;
}

void Lessico::LeggiParola(Segno& segno) {
  const std::size_t inizio = i_;
  while (i_ < testo_.size()) {
    const std::uint8_t classe = ClasseDi(testo_[i_]);
    if (classe != kLettera && classe != kCifra) break;
    ++i_;
  }
  segno.genere = GenereSegno::Parola;
  segno.grezzo = testo_.substr(inizio, i_ - inizio);
}

void Lessico::LeggiNumero(Segno& segno) {
  const std::size_t inizio = i_;
  const auto cifre = [this] {
    const std::size_t da = i_;
    while (i_ < testo_.size() && ClasseDi(testo_[i_]) == kCifra) ++i_;
    return i_ - da;
  };
  if (testo_[i_] == '-') ++i_;
  cifre();
  if (i_ + 1 < testo_.size() && testo_[i_] == '.' && ClasseDi(testo_[i_ + 1]) == kCifra) {
    ++i_;
    segno.decimale = true;
    segno.reale = cifre() > kDecimaliImporto;
  }
  if (i_ + 1 < testo_.size() && Minuscola(testo_[i_]) == 'e') {
    const std::size_t segnoEsp = testo_[i_ + 1] == '+' || testo_[i_ + 1] == '-' ? 1 : 0;
    if (i_ + 1 + segnoEsp < testo_.size() && ClasseDi(testo_[i_ + 1 + segnoEsp]) == kCifra) {
      i_ += 1 + segnoEsp;
      cifre();
      segno.reale = true;
    }
  }
  segno.genere = GenereSegno::Numero;
  segno.grezzo = testo_.substr(inizio, i_ - inizio);
  segno.fisso = livelloBy_ >= 0 || chiavePrima_ == Chiave::Top;
  segno.puro = !segno.fisso && !segno.reale && StaDaSolo();
}

bool Lessico::StaDaSolo() const {
  if (prima_ != GenereSegno::Simbolo) return false;
  switch (simboloPrima_) {
    case '=':
    case '<':
    case '>':
    case 'n':
    case 'l':
    case 'g':
      break;
    case '(':
    case ',':
      if (livelloLista_ < 0 || livello_ != livelloLista_) return false;
      break;
    default:
      return false;
  }
  std::size_t j = i_;
  while (j < testo_.size() && ClasseDi(testo_[j]) == kSpazio) ++j;
  if (j >= testo_.size()) return true;
  if (ClasseDi(testo_[j]) == kLettera) return !ParolaUguale(testo_.substr(j, 3), "mod");
  return testo_[j] == ',' || testo_[j] == ')' || testo_[j] == ';';
}

bool Lessico::LeggiRacchiuso(Segno& segno, char apertura) {
  const std::size_t inizio = i_;
  const char chiusura = apertura == '[' ? ']' : apertura;
  std::size_t j = i_ + 1;
  for (;;) {
    const void* trovato =
        j < testo_.size() ? std::memchr(testo_.data() + j, chiusura, testo_.size() - j) : nullptr;
    if (trovato == nullptr) {
      if (apertura == '[') return Rifiuta(inizio, "parentesi quadra non chiusa");
      if (apertura == '#') return Rifiuta(inizio, "data non chiusa da #");
      return Rifiuta(inizio, "testo non chiuso: manca l'apice o le virgolette finali");
    }
    j = static_cast<std::size_t>(static_cast<const char*>(trovato) - testo_.data()) + 1;
    const bool raddoppiato =
        (apertura == '\'' || apertura == '"') && j < testo_.size() && testo_[j] == chiusura;
    if (!raddoppiato) break;
    ++j;
  }
  i_ = j;
  segno.grezzo = testo_.substr(inizio, j - inizio);
  segno.genere = apertura == '['   ? GenereSegno::Quadre
                 : apertura == '#' ? GenereSegno::Data
                                   : GenereSegno::Testo;
  segno.prefisso = segno.genere == GenereSegno::Testo && chiavePrima_ == Chiave::Come &&
                   !PrefissoDi(segno.grezzo.substr(1, segno.grezzo.size() - 2)).empty();
  if (apertura == '[' && segno.grezzo.size() == 2) return Rifiuta(inizio, "nome vuoto");
  if (apertura == '#') {
    for (char c : segno.grezzo.substr(1, segno.grezzo.size() - 2)) {
      if (ClasseDi(c) != kCifra && c != '/' && c != '-') {
        return Rifiuta(inizio, "data non riconosciuta: scriverla come #mm/gg/aaaa#");
      }
    }
  }
  return true;
}

bool Lessico::LeggiSimbolo(Segno& segno) {
  const char c = testo_[i_];
  const char dopo = i_ + 1 < testo_.size() ? testo_[i_ + 1] : '\0';
  std::size_t lunghezza = 1;
  segno.genere = GenereSegno::Simbolo;
  segno.simbolo = c;
  if (c == '<' && dopo == '>') {
    segno.simbolo = 'n';
    lunghezza = 2;
  } else if ((c == '<' || c == '>') && dopo == '=') {
    segno.simbolo = c == '<' ? 'l' : 'g';
    lunghezza = 2;
  }
  segno.grezzo = testo_.substr(i_, lunghezza);
  i_ += lunghezza;
  SegnaParentesi(c);
  return true;
}

void Lessico::SegnaParentesi(char simbolo) {
  if (simbolo == '(') {
    ++livello_;
    if (chiavePrima_ == Chiave::Lista) livelloLista_ = livello_;
  } else if (simbolo == ')') {
    if (livelloLista_ == livello_) livelloLista_ = -1;
    --livello_;
    if (livello_ < livelloBy_) livelloBy_ = -1;
  }
}

std::string_view PrefissoDi(std::string_view modello) {
  return modello.substr(0, modello.find_first_of("*?#["));
}

std::string_view NomeDi(const Segno& segno) {
  return segno.genere == GenereSegno::Quadre ? segno.grezzo.substr(1, segno.grezzo.size() - 2)
                                             : segno.grezzo;
}

Letterale LetteraleDi(const Segno& segno) {
  Letterale l;
  const std::string_view g = segno.grezzo;
  switch (segno.genere) {
    case GenereSegno::Testo: {
      l.genere = Letterale::Genere::Testo;
      const char apice = g.front();
      const std::string_view dentro = g.substr(1, g.size() - 2);
      const std::size_t primo = dentro.find(apice);
      if (primo == std::string_view::npos) {
        l.testo = dentro;
        break;
      }
      l.testo.reserve(dentro.size());
      for (std::size_t i = 0; i < dentro.size(); ++i) {
        l.testo += dentro[i];
        if (dentro[i] == apice) ++i;
      }
      break;
    }
    case GenereSegno::Data: {
      l.genere = Letterale::Genere::Data;
      const std::string_view dentro = g.substr(1, g.size() - 2);
      // ISO order is turned into the dialect's.
      if (dentro.size() == 10 && dentro[4] == '-' && dentro[7] == '-') {
        l.testo.append(dentro.substr(5, 2)).append("/").append(dentro.substr(8, 2));
        l.testo.append("/").append(dentro.substr(0, 4));
      } else {
        l.testo = dentro;
      }
      break;
    }
    case GenereSegno::Booleano:
      l.genere = Letterale::Genere::Booleano;
      l.testo = g.size() == 4 ? "True" : "False";
      break;
    default:
      l.genere = Letterale::Genere::Numero;
      l.testo = g;
      break;
  }
  return l;
}

namespace {

/// Stands for a literal in the shape: `?` occurs in no text outside quotes and brackets.
char MarcaDi(const Segno& segno) {
  switch (segno.genere) {
    case GenereSegno::Testo:
      return segno.prefisso ? 'p' : 't';
    case GenereSegno::Data:
      return 'g';
    case GenereSegno::Booleano:
      return 'b';
    default:
      if (segno.puro) return 'n';
      return segno.reale ? 'r' : segno.decimale ? 'd' : 'i';
  }
}

}  // namespace

Esito<Forma, ErroreSql> FormaDi(std::string_view testo) {
  Forma forma;
  forma.chiave.reserve(testo.size() + 16);
  forma.letterali.reserve(8);
  Lessico lessico(testo);
  Segno segno;
  bool parolaPrima = false;
  for (;;) {
    if (!lessico.Prossimo(segno)) return lessico.Errore();
    if (segno.genere == GenereSegno::Fine) break;
    if (segno.genere == GenereSegno::Simbolo) {
      forma.chiave += segno.grezzo;
      parolaPrima = false;
      continue;
    }
    if (parolaPrima) forma.chiave += ' ';
    parolaPrima = true;
    if (segno.ELetterale()) {
      forma.chiave += '?';
      forma.chiave += MarcaDi(segno);
      forma.letterali.push_back(LetteraleDi(segno));
    } else if (segno.genere == GenereSegno::Parola) {
      for (char c : segno.grezzo) forma.chiave += Minuscola(c);
    } else {
      forma.chiave += segno.grezzo;
    }
  }
  return forma;
}

}  // namespace fenalto::sql
