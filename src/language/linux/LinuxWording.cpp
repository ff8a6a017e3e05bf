// SPDX-License-Identifier: MIT
#include "language/linux/LinuxWording.h"

#include <array>

namespace vtx {
namespace {

using enum L10n::Key;

constexpr auto deWording = std::to_array<TextEntry>({
    {memory_purgeBody,
     "Bittet den Kernel, inaktive Seiten zu verwerfen. Das System fragt einmal nach deinem "
     "Passwort — die Berechtigung gilt ~5 Minuten."},
    {memory_pressureCritical, "Das System drosselt jetzt. Beende etwas aus der Liste unten."},
    {gpu_unavailableBody,
     "Auf diesem System meldet kein Grafiktreiber seine Auslastung. Das kommt in virtuellen "
     "Maschinen und bei sehr neuer Hardware häufig vor."},
    {fan_unavailable, "Dieser Computer meldet keinen Lüfter."},
    {fanControl_consentBody,
     "Damit darf Vantrix die Lüfterdrehzahl deines Computers vorgeben. Standardmäßig aus. Du "
     "kannst jederzeit zur Automatik zurückkehren."},
    {fanControl_verifyTitle, "Auf diesem Computer prüfen"},
    {fanControl_verifiedBadge, "Auf diesem Computer geprüft"},
    {fanControl_noResponse,
     "Keine Reaktion erkannt — dieser Computer scheint die Steuerung nicht zu unterstützen."},
    {fanControl_blocked,
     "Das System hat den Schreibzugriff verweigert. Auf diesem Computer braucht die "
     "Lüftersteuerung ein privilegiertes Hilfsprogramm."},
    {fanControl_helperApprove, "Hilfsprogramm erlauben"},
    {fanControl_helperApprovalNeeded, "Das System muss den Hintergrunddienst noch erlauben."},
    {ane_unavailableBody, "Entweder hat dieser Rechner keine ANE oder ihr Treiber meldet nichts."},
    {settings_alertsDenied,
     "⚠️ Benachrichtigungen sind für Vantrix ausgeschaltet — aktiviere sie in den Einstellungen "
     "deines Desktops → Benachrichtigungen."},
    {settings_autoReliefBody,
     "Bei Speicherdruck ≠ Normal bittet Vantrix die C-Bibliothek, ungenutzte Seiten im **eigenen** "
     "Prozess freizugeben. Andere Prozesse werden nie angetastet."},
    {settings_aboutFooter,
     "Vantrix liest Systemmesswerte über /proc, /sys und Netlink. Es verändert keine anderen "
     "Prozesse und führt keine privilegierten Vorgänge aus."},
    {settings_languageFooter, "'Automatisch' folgt der Sprache deiner Sitzung."},
    {battery_unavailable, "Dieser Computer hat keine Batterie."},
    {alert_pressure_body,
     "Das System meldet seit einer Weile kritischen Speicherdruck. Schließe große Apps oder gib "
     "Speicher frei."},
});

constexpr auto enWording = std::to_array<TextEntry>({
    {memory_purgeBody,
     "Asks the kernel to drop inactive pages. The system prompts for your password once — the "
     "grant lasts ~5 minutes."},
    {memory_pressureCritical, "The system is throttling now. Quit something from the list below."},
    {gpu_unavailableBody,
     "On this system no graphics driver reports its load. Common in VMs or with very new "
     "hardware."},
    {fan_unavailable, "This computer reports no fan."},
    {fanControl_consentBody,
     "This lets Vantrix write your computer's fan speed. Off by default. You can return to "
     "automatic at any time."},
    {fanControl_verifyTitle, "Verify on this computer"},
    {fanControl_verifiedBadge, "Verified on this computer"},
    {fanControl_noResponse,
     "No response detected — this computer doesn't appear to support control."},
    {fanControl_blocked,
     "The system refused write access. Controlling fans on this computer needs a privileged "
     "helper."},
    {fanControl_helperApprove, "Approve the helper"},
    {fanControl_helperApprovalNeeded, "The system still needs to approve the background service."},
    {ane_unavailableBody, "Either the host has no ANE, or its driver reports nothing."},
    {settings_alertsDenied,
     "⚠️ Notifications for Vantrix are turned off — enable them in your desktop's settings → "
     "Notifications."},
    {settings_autoReliefBody,
     "Under memory pressure ≠ Normal, Vantrix asks the C library to release unused pages in **its "
     "own** process. Other processes are never touched."},
    {settings_aboutFooter,
     "Vantrix reads system metrics via /proc, /sys, and netlink. It never modifies other processes "
     "and runs no privileged operations."},
    {settings_languageFooter, "'Automatic' follows the language of your session."},
    {battery_unavailable, "This computer has no battery."},
    {alert_pressure_body,
     "The system has been reporting critical memory pressure for a while. Quit large apps or free "
     "up some memory."},
});

constexpr auto frWording = std::to_array<TextEntry>({
    {memory_purgeBody,
     "Demande au noyau de libérer les pages inactives. Le système demande votre mot de passe une "
     "seule fois — l'autorisation est valable ~5 minutes."},
    {memory_pressureCritical,
     "Le système bride maintenant les performances. Fermez l'un des éléments de la liste "
     "ci-dessous."},
    {gpu_unavailableBody,
     "Sur ce système, aucun pilote graphique n'indique sa charge. C'est courant dans les machines "
     "virtuelles et avec du matériel très récent."},
    {fan_unavailable, "Cet ordinateur ne signale aucun ventilateur."},
    {ane_unavailableBody, "Soit cette machine n'a pas d'ANE, soit son pilote n'indique rien."},
    {settings_alertsDenied,
     "⚠️ Les notifications de Vantrix sont désactivées — activez-les dans les réglages de votre "
     "bureau → Notifications."},
    {settings_autoReliefBody,
     "Quand la pression mémoire ≠ Normale, Vantrix demande à la bibliothèque C de libérer les "
     "pages inutilisées de **son propre** processus. Les autres processus ne sont jamais touchés."},
    {settings_aboutFooter,
     "Vantrix lit les mesures du système via /proc, /sys et netlink. Il ne modifie jamais d'autres "
     "processus et n'exécute aucune opération privilégiée."},
    {settings_languageFooter, "'Automatique' suit la langue de votre session."},
    {battery_unavailable, "Cet ordinateur n'a pas de batterie."},
});

constexpr auto esWording = std::to_array<TextEntry>({
    {memory_purgeBody,
     "Pide al kernel que descarte las páginas inactivas. El sistema solicita tu contraseña una vez "
     "— el permiso dura ~5 minutos."},
    {memory_pressureCritical,
     "El sistema está limitando el rendimiento. Cierra algo de la lista siguiente."},
    {gpu_unavailableBody,
     "En este sistema, ningún controlador gráfico informa de su carga. Es habitual en máquinas "
     "virtuales y con hardware muy reciente."},
    {fan_unavailable, "Este equipo no informa de ningún ventilador."},
    {ane_unavailableBody, "Este equipo no tiene ANE o su controlador no informa de nada."},
    {settings_alertsDenied,
     "⚠️ Las notificaciones de Vantrix están desactivadas — actívalas en los ajustes de tu "
     "escritorio → Notificaciones."},
    {settings_autoReliefBody,
     "Con una presión de memoria ≠ Normal, Vantrix pide a la biblioteca de C que libere las "
     "páginas sin usar de su **propio** proceso. Los demás procesos no se tocan nunca."},
    {settings_aboutFooter,
     "Vantrix lee las métricas del sistema mediante /proc, /sys y netlink. Nunca modifica otros "
     "procesos ni ejecuta operaciones con privilegios."},
    {settings_languageFooter, "'Automático' sigue el idioma de tu sesión."},
    {battery_unavailable, "Este equipo no tiene batería."},
});

constexpr auto itWording = std::to_array<TextEntry>({
    {memory_purgeBody,
     "Chiede al kernel di scartare le pagine inattive. Il sistema richiede la password una sola "
     "volta — l'autorizzazione dura ~5 minuti."},
    {memory_pressureCritical,
     "Il sistema sta limitando le prestazioni. Chiudi qualcosa dall'elenco qui sotto."},
    {gpu_unavailableBody,
     "Su questo sistema nessun driver grafico segnala il proprio carico. È frequente nelle "
     "macchine virtuali e con hardware molto recente."},
    {fan_unavailable, "Questo computer non segnala alcuna ventola."},
    {ane_unavailableBody, "Il computer non ha un'ANE oppure il suo driver non segnala nulla."},
    {settings_alertsDenied,
     "⚠️ Le notifiche di Vantrix sono disattivate — attivale nelle impostazioni del tuo desktop → "
     "Notifiche."},
    {settings_autoReliefBody,
     "Con una pressione memoria ≠ Normale, Vantrix chiede alla libreria C di rilasciare le pagine "
     "inutilizzate del **proprio** processo. Gli altri processi non vengono mai toccati."},
    {settings_aboutFooter,
     "Vantrix legge le metriche di sistema tramite /proc, /sys e netlink. Non modifica mai altri "
     "processi e non esegue operazioni privilegiate."},
    {settings_languageFooter, "'Automatico' segue la lingua della tua sessione."},
    {battery_unavailable, "Questo computer non ha una batteria."},
});

constexpr auto ptWording = std::to_array<TextEntry>({
    {memory_purgeBody,
     "Pede ao kernel que descarte as páginas inativas. O sistema solicita a palavra-passe uma vez "
     "— a autorização é válida durante ~5 minutos."},
    {memory_pressureCritical, "O sistema está a limitar o desempenho. Feche algo da lista abaixo."},
    {gpu_unavailableBody,
     "Neste sistema, nenhum controlador gráfico indica a sua carga. É comum em máquinas virtuais e "
     "com hardware muito recente."},
    {fan_unavailable, "Este computador não indica nenhuma ventoinha."},
    {ane_unavailableBody,
     "Ou este computador não tem ANE, ou o respetivo controlador não indica nada."},
    {settings_alertsDenied,
     "⚠️ As notificações do Vantrix estão desativadas — ative-as nas definições do seu ambiente de "
     "trabalho → Notificações."},
    {settings_autoReliefBody,
     "Com pressão da memória ≠ Normal, o Vantrix pede à biblioteca C que liberte as páginas não "
     "utilizadas do **seu próprio** processo. Os outros processos nunca são afetados."},
    {settings_aboutFooter,
     "O Vantrix lê as métricas do sistema através de /proc, /sys e netlink. Nunca modifica outros "
     "processos nem executa operações privilegiadas."},
    {settings_languageFooter, "'Automático' segue o idioma da sua sessão."},
    {battery_unavailable, "Este computador não tem bateria."},
});

constexpr auto nlWording = std::to_array<TextEntry>({
    {memory_purgeBody,
     "Vraagt de kernel om inactieve pagina’s vrij te geven. Het systeem vraagt één keer om je "
     "wachtwoord — de toestemming geldt ongeveer 5 minuten."},
    {memory_pressureCritical,
     "Het systeem beperkt nu de prestaties. Sluit iets uit de lijst hieronder."},
    {gpu_unavailableBody,
     "Op dit systeem meldt geen enkel grafisch stuurprogramma zijn belasting. Komt vaak voor in "
     "VM’s en bij heel nieuwe hardware."},
    {fan_unavailable, "Deze computer meldt geen ventilator."},
    {ane_unavailableBody, "Deze computer heeft geen ANE, of het stuurprogramma meldt niets."},
    {settings_languageFooter, "'Automatisch' volgt de taal van je sessie."},
    {battery_unavailable, "Deze computer heeft geen batterij."},
});

constexpr auto plWording = std::to_array<TextEntry>({
    {memory_purgeBody,
     "Prosi jądro systemu o zwolnienie nieaktywnych stron pamięci. System jednorazowo zapyta o "
     "hasło — zgoda jest ważna ok. 5 minut."},
    {memory_pressureCritical, "System ogranicza teraz wydajność. Zamknij coś z poniższej listy."},
    {gpu_unavailableBody,
     "W tym systemie żaden sterownik grafiki nie podaje obciążenia. Zdarza się to często na "
     "maszynach wirtualnych i na bardzo nowym sprzęcie."},
    {fan_unavailable, "Ten komputer nie zgłasza żadnego wentylatora."},
    {ane_unavailableBody, "Ten komputer nie ma ANE albo sterownik nie podaje żadnych danych."},
    {settings_languageFooter, "'Automatycznie' podąża za językiem sesji."},
    {battery_unavailable, "Ten komputer nie ma baterii."},
});

constexpr auto jaWording = std::to_array<TextEntry>({
    {memory_purgeBody,
     "非アクティブなページを破棄するようカーネルに要求します。"
     "システムから一度だけパスワードの入力を求められ、許可は約5分間有効です。"},
    {memory_pressureCritical,
     "システムが処理を抑制しています。下のリストからいずれかを終了してください。"},
    {gpu_unavailableBody,
     "このシステムでは負荷を報告するグラフィックスドライバがありません。"
     "仮想マシンやごく新しいハードウェアではよくあることです。"},
    {fan_unavailable, "このコンピュータではファンが検出されませんでした。"},
    {ane_unavailableBody,
     "このコンピュータにANEが搭載されていないか、ドライバが何も報告していません。"},
    {settings_languageFooter, "「自動」はセッションの言語に従います。"},
    {battery_unavailable, "このコンピュータにはバッテリーがありません。"},
});

constexpr auto zhWording = std::to_array<TextEntry>({
    {memory_purgeBody, "请求内核丢弃非活跃页面。系统会要求输入一次密码，授权在约5分钟内有效。"},
    {memory_pressureCritical, "系统正在限制性能。请退出下方列表中的部分进程。"},
    {gpu_unavailableBody, "此系统上没有图形驱动程序报告负载。这在虚拟机或很新的硬件上很常见。"},
    {fan_unavailable, "此电脑没有报告风扇信息。"},
    {ane_unavailableBody, "此电脑没有ANE，或者其驱动程序未报告任何信息。"},
    {settings_languageFooter, "「自动」会跟随会话的语言。"},
    {battery_unavailable, "此电脑没有电池。"},
});

constexpr auto trWording = std::to_array<TextEntry>({
    {memory_purgeBody,
     "Sistem çekirdeğinden etkin olmayan sayfaları bırakmasını ister. Sistem, parolanızı bir kez "
     "sorar — izin yaklaşık 5 dakika geçerlidir."},
    {memory_pressureCritical,
     "Sistem şu anda yavaşlatılıyor. Aşağıdaki listeden bir öğeyi kapatın."},
    {gpu_unavailableBody,
     "Bu sistemde hiçbir grafik sürücüsü yükünü bildirmiyor. Sanal makinelerde veya çok yeni "
     "donanımlarda sık görülür."},
    {fan_unavailable, "Bu bilgisayar herhangi bir fan bildirmiyor."},
    {ane_unavailableBody, "Bu bilgisayarda ANE yok ya da sürücüsü bilgi vermiyor."},
    {settings_alertsDenied,
     "⚠️ Vantrix bildirimleri kapalı — masaüstünüzün Ayarlar → Bildirimler bölümünden "
     "etkinleştirin."},
    {settings_autoReliefBody,
     "Bellek baskısı ≠ Normal olduğunda Vantrix, C kitaplığından **kendi** işlemindeki "
     "kullanılmayan sayfaları bırakmasını ister. Diğer işlemlere asla dokunulmaz."},
    {settings_aboutFooter,
     "Vantrix, sistem ölçümlerini /proc, /sys ve netlink üzerinden okur. Diğer işlemleri asla "
     "değiştirmez ve ayrıcalık gerektiren hiçbir eylem gerçekleştirmez."},
    {settings_languageFooter,
     "Tercihiniz hemen geçerli olur. 'Otomatik' oturumunuzun dilini takip eder."},
    {battery_unavailable, "Bu bilgisayarda pil yok."},
});

constexpr auto ruWording = std::to_array<TextEntry>({
    {memory_purgeBody,
     "Просит ядро системы освободить неактивные страницы памяти. Система один раз запросит пароль "
     "— разрешение действует около 5 минут."},
    {memory_pressureCritical,
     "Система сейчас ограничивает производительность. Завершите что-нибудь из списка ниже."},
    {gpu_unavailableBody,
     "В этой системе ни один графический драйвер не сообщает о нагрузке. Так часто бывает в "
     "виртуальных машинах и на очень новом оборудовании."},
    {fan_unavailable, "Этот компьютер не сообщает о вентиляторах."},
    {ane_unavailableBody, "В этом компьютере нет ANE, либо его драйвер ничего не сообщает."},
    {settings_alertsDenied,
     "⚠️ Уведомления Vantrix выключены — включите их в настройках среды рабочего стола → "
     "«Уведомления»."},
    {settings_autoReliefBody,
     "Когда нагрузка на память ≠ «Норма», Vantrix просит библиотеку C освободить неиспользуемые "
     "страницы **своего** процесса. Другие процессы никогда не затрагиваются."},
    {settings_aboutFooter,
     "Vantrix считывает показатели системы через /proc, /sys и netlink. Программа никогда не "
     "изменяет другие процессы и не выполняет привилегированных операций."},
    {settings_languageFooter,
     "Изменения вступают в силу немедленно. 'Авто' следует языку вашего сеанса."},
    {battery_unavailable, "В этом компьютере нет аккумулятора."},
});

constexpr auto koWording = std::to_array<TextEntry>({
    {memory_purgeBody,
     "커널에 비활성 페이지를 해제하도록 요청합니다. 시스템에서 암호를 한 번 묻고, 권한은 약 5분간 "
     "유지됩니다."},
    {memory_pressureCritical,
     "시스템이 현재 성능을 제한하고 있습니다. 아래 목록에서 프로세스를 종료하십시오."},
    {gpu_unavailableBody,
     "이 시스템에는 부하를 보고하는 그래픽 드라이버가 없습니다. 가상 머신이나 최신 하드웨어에서 "
     "흔히 발생합니다."},
    {fan_unavailable, "이 컴퓨터에서 보고된 팬이 없습니다."},
    {ane_unavailableBody, "이 컴퓨터에 ANE가 없거나 드라이버가 아무것도 보고하지 않습니다."},
    {settings_alertsDenied, "⚠️ Vantrix의 알림이 꺼져 있습니다. 데스크톱 설정 → 알림에서 켜십시오."},
    {settings_autoReliefBody,
     "메모리 압력 ≠ 정상일 때 Vantrix가 C 라이브러리에 **자체** 프로세스의 사용하지 않는 페이지를 "
     "해제하도록 요청합니다. 다른 프로세스는 절대 건드리지 않습니다."},
    {settings_aboutFooter,
     "Vantrix는 /proc, /sys, netlink를 통해 시스템 지표를 읽습니다. 다른 프로세스를 절대 수정하지 "
     "않으며, 권한 상승이 필요한 작업은 실행하지 않습니다."},
    {settings_languageFooter, "변경 사항이 즉시 적용됩니다. '자동'은 세션의 언어를 따릅니다."},
    {battery_unavailable, "이 컴퓨터에는 배터리가 없습니다."},
});

}  // namespace

std::span<const TextEntry> linuxWording(Language language) {
    switch (language) {
        case Language::automatic:
            return {};
        case Language::de:
            return deWording;
        case Language::en:
            return enWording;
        case Language::fr:
            return frWording;
        case Language::es:
            return esWording;
        case Language::it:
            return itWording;
        case Language::pt:
            return ptWording;
        case Language::nl:
            return nlWording;
        case Language::pl:
            return plWording;
        case Language::ja:
            return jaWording;
        case Language::zh:
            return zhWording;
        case Language::tr:
            return trWording;
        case Language::ru:
            return ruWording;
        case Language::ko:
            return koWording;
    }
    return {};
}

}  // namespace vtx
