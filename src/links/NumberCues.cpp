#include "NumberCues.h"

#include "Characters.h"

#include <QString>

#include <algorithm>
#include <array>

namespace vantrel {

namespace {

using Words = std::u16string_view;

/// In lower case. A "*" at the end stands for any letters; words in other scripts are compared by
/// their ends, since they follow others without a space.
constexpr std::array phoneWords{
    Words(u"tel*"),    Words(u"phone*"),   Words(u"dial*"),     Words(u"call"),
    Words(u"calls"),   Words(u"mobil*"),   Words(u"mob"),       Words(u"cell*"),
    Words(u"fon*"),    Words(u"handy*"),   Words(u"rufn*"),     Words(u"natel"),
    Words(u"gsm"),     Words(u"einwahl*"), Words(u"durchwahl"), Words(u"anruf*"),
    Words(u"hotline"), Words(u"whatsapp"), Words(u"sms"),       Words(u"fax"),
    Words(u"tél*"),    Words(u"appel*"),   Words(u"llam*"),     Words(u"ligue"),
    Words(u"chiama*"), Words(u"ph"),       Words(u"t"),         Words(u"m"),
    Words(u"p"),       Words(u"тел"),      Words(u"телефон"),   Words(u"звонок"),
    Words(u"电话"),    Words(u"电话号码"), Words(u"手机"),      Words(u"手机号"),
    Words(u"電話"),    Words(u"電話番号"), Words(u"携帯"),      Words(u"電話號碼"),
    Words(u"tlf*"),    Words(u"tfn"),      Words(u"puh*"),      Words(u"ring"),
    Words(u"bel"),     Words(u"电话号"),   Words(u"携帯番号"),  Words(u"휴대폰번호"),
    Words(u"연락처"),  Words(u"전화"),     Words(u"전화번호"),  Words(u"휴대폰"),
};

constexpr std::array otherWords{
    Words(u"id"),          Words(u"ids"),        Words(u"pin"),
    Words(u"pins"),        Words(u"pass*"),      Words(u"code*"),
    Words(u"kod"),         Words(u"kode"),       Words(u"codigo"),
    Words(u"código"),      Words(u"codice"),     Words(u"kenn*"),
    Words(u"zugang*"),     Words(u"order*"),     Words(u"invoice"),
    Words(u"ticket*"),     Words(u"ref"),        Words(u"refer*"),
    Words(u"confirm*"),    Words(u"konto*"),     Words(u"iban"),
    Words(u"bic"),         Words(u"isbn"),       Words(u"issn"),
    Words(u"ssn"),         Words(u"vat"),        Words(u"ust"),
    Words(u"uid"),         Words(u"bestell*"),   Words(u"auftrag*"),
    Words(u"rechnung*"),   Words(u"vorgang*"),   Words(u"tracking"),
    Words(u"serial"),      Words(u"version"),    Words(u"build"),
    Words(u"commit"),      Words(u"contrase*"),  Words(u"senha"),
    Words(u"clave"),       Words(u"clé"),        Words(u"pedido"),
    Words(u"commande"),    Words(u"facture"),    Words(u"ordine"),
    Words(u"fattura"),     Words(u"bestelling"), Words(u"wachtwoord"),
    Words(u"lösenord"),    Words(u"hasło"),      Words(u"heslo"),
    Words(u"код"),         Words(u"пароль"),     Words(u"идентификатор"),
    Words(u"конференции"), Words(u"заказ"),      Words(u"заказа"),
    Words(u"号"),          Words(u"号码"),       Words(u"密码"),
    Words(u"密碼"),        Words(u"編號"),       Words(u"编号"),
    Words(u"订单"),        Words(u"番号"),       Words(u"パスコード"),
    Words(u"パスワード"),  Words(u"コード"),     Words(u"암호"),
    Words(u"비밀번호"),    Words(u"번호"),       Words(u"코드"),
};

constexpr std::array subjects{
    Words(u"account"), Words(u"acct"),    Words(u"booking"),  Words(u"buchung*"),
    Words(u"case"),    Words(u"client"),  Words(u"customer"), Words(u"flight"),
    Words(u"kunde*"),  Words(u"reserv*"), Words(u"member*"),  Words(u"room"),
};

constexpr std::array numberWords{
    Words(u"number"), Words(u"numbers"), Words(u"no"),     Words(u"nr"),     Words(u"num"),
    Words(u"nummer"), Words(u"numéro"),  Words(u"número"), Words(u"numero"),
};

constexpr std::array currencies{
    Words(u"eur"),     Words(u"usd"),    Words(u"chf"),     Words(u"gbp"),  Words(u"jpy"),
    Words(u"cny"),     Words(u"cad"),    Words(u"aud"),     Words(u"inr"),  Words(u"kr"),
    Words(u"nok"),     Words(u"dkk"),    Words(u"sek"),     Words(u"pln"),  Words(u"czk"),
    Words(u"huf"),     Words(u"fr"),     Words(u"rs"),      Words(u"euro"), Words(u"euros"),
    Words(u"dollars"), Words(u"francs"), Words(u"franken"), Words(u"元"),   Words(u"円"),
    Words(u"원"),
};

/// A word is of one kind of letters, and all that is not Latin here lies beyond ASCII.
bool matches(QStringView word, Words pattern) {
    const QStringView wanted(pattern.data(), static_cast<qsizetype>(pattern.size()));
    if (!characters::isAscii(pattern.front()))
        return !characters::isAscii(word.front().unicode()) && word.endsWith(wanted);
    if (word.front() != wanted.front())
        return false;
    return wanted.endsWith(u'*') ? word.startsWith(wanted.chopped(1)) : word == wanted;
}

template <std::size_t count>
bool isAnyOf(QStringView word, const std::array<Words, count> &patterns) {
    return std::any_of(patterns.begin(), patterns.end(),
                       [&](Words pattern) { return matches(word, pattern); });
}

/// Compounds such as "Vertragsnummer"; by itself the word says nothing.
bool isNumberOfSomething(QStringView word) {
    return word.size() > 6 && word.endsWith(u"nummer");
}

} // namespace

Cue cueOf(QStringView word) {
    const QString lower = word.toString().toLower();
    if (isAnyOf(lower, phoneWords))
        return Cue::phone;
    if (isAnyOf(lower, otherWords) || isNumberOfSomething(lower))
        return Cue::other;
    if (isAnyOf(lower, subjects))
        return Cue::subject;
    if (isAnyOf(lower, numberWords))
        return Cue::number;
    return isAnyOf(lower, currencies) ? Cue::currency : Cue::none;
}

} // namespace vantrel
