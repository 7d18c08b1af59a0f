#include "platform/failure.h"

TextView failureText(FailureKind kind) {
    switch (kind) {
    case FailureKind::subscript:
        return u"添字が範囲を越えました";
    case FailureKind::division:
        return u"0で割り算をしました";
    case FailureKind::overflow:
        return u"数値があふれました";
    case FailureKind::impossible:
        return u"計算できない値です";
    case FailureKind::file:
        return u"ファイル操作に失敗しました";
    case FailureKind::printing:
        return u"印刷に失敗しました";
    case FailureKind::communication:
        return u"通信に失敗しました";
    }
    return u"ファイル操作に失敗しました";
}
